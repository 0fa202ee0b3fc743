#include "widgets/table_text.h"

#include <QAbstractItemModel>
#include <QStringList>
#include <algorithm>
#include <string>
#include <vector>

#include "core/csv_line.h"
#include "widgets/table_model.h"
#include "widgets/text.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

QStringList headings(const QAbstractItemModel& model) {
    QStringList texts;
    for (int column = 0; column < model.columnCount(); ++column) {
        texts << model.headerData(column, Qt::Horizontal).toString().simplified();
    }
    return texts;
}

QStringList cells(const QAbstractItemModel& model, int row, int role) {
    QStringList texts;
    for (int column = 0; column < model.columnCount(); ++column) {
        texts << model.index(row, column).data(role).toString();
    }
    return texts;
}

std::string csv_line_of(const QStringList& texts) {
    std::vector<std::string> fields(static_cast<std::size_t>(texts.size()));
    std::ranges::transform(texts, fields.begin(), to_utf8);
    return csv_line(fields);
}

}  // namespace

QString tab_separated(const QAbstractItemModel& model, const QList<int>& rows) {
    QString text = headings(model).join(u'\t') + u'\n';
    for (const int row : rows) {
        text += cells(model, row, Qt::DisplayRole).join(u'\t') + u'\n';
    }
    return text;
}

QString html_table(const QAbstractItemModel& model, const QList<int>& rows) {
    const auto element = [&](const QString& tag, int column, const QString& text) {
        const auto alignment = model.headerData(column, Qt::Horizontal, Qt::TextAlignmentRole).toInt();
        const QString side = (alignment & Qt::AlignRight) != 0 ? u"right"_s : u"left"_s;
        return u"<%1 align=\"%2\">%3</%1>"_s.arg(tag, side, text.toHtmlEscaped());
    };
    const auto line = [&](const QString& tag, const QStringList& texts) {
        QString html;
        for (int column = 0; column < texts.size(); ++column) {
            html += element(tag, column, texts.at(column));
        }
        return QString(u"<tr>"_s + html + u"</tr>\n"_s);
    };
    QString html = u"<table>\n"_s + line(u"th"_s, headings(model));
    for (const int row : rows) {
        html += line(u"td"_s, cells(model, row, Qt::DisplayRole));
    }
    return html + u"</table>\n"_s;
}

QByteArray csv(const QAbstractItemModel& model) {
    std::string text = csv_line_of(headings(model));
    for (int row = 0; row < model.rowCount(); ++row) {
        text += csv_line_of(cells(model, row, plain_role));
    }
    return QByteArray::fromStdString(text);
}

}  // namespace kelvar
