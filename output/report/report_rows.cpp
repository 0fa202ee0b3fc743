#include "output/report/report_rows.h"

#include <QRegularExpression>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextTable>
#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

constexpr std::size_t most_kinds = 50;  // more are hardly worth the looking

constexpr std::array inside_cells{u"b", u"i", u"u", u"em", u"strong", u"span", u"font"};
constexpr std::pair<const char16_t*, char16_t> entities[] = {
    {u"&lt;", u'<'}, {u"&gt;", u'>'}, {u"&quot;", u'"'}, {u"&apos;", u'\''}, {u"&#39;", u'\''}};

bool is(QStringView name, QStringView other) {
    return name.compare(other, Qt::CaseInsensitive) == 0;
}

bool styled_by_neighbours(const QString& html) {
    static const QRegularExpression doubtful(u"<link\\b|@import|<style[^>]*>[^<]*[+~]"_s,
                                             QRegularExpression::CaseInsensitiveOption);
    return html.contains(doubtful);
}

// Nothing when the toolkit could make something else of it.
std::optional<QString> plain_text(QStringView html) {
    const auto usual = [](QChar c) {
        return c == u' ' || (c.isPrint() && !c.isSpace() && c < QChar(0x2000));
    };
    if (html.startsWith(u' ') || html.endsWith(u' ') || html.contains(u"  ") ||
        !std::ranges::all_of(html, usual)) {
        return {};
    }
    QString text = html.toString();
    if (text.contains(u'&')) {
        static const QRegularExpression unknown(u"&(?!(lt|gt|quot|apos|#39|amp);)"_s);
        if (text.contains(unknown)) {
            return {};
        }
        for (const auto& [entity, letter] : entities) {
            text.replace(QStringView(entity).toString(), QString(QChar(letter)));
        }
        text.replace(u"&amp;"_s, u"&"_s);
    }
    return text;
}

// A table that is in no other one, and where its rows begin.
struct TableInText {
    int heading_rows = 0;
    std::vector<qsizetype> rows{};  // below the heading
    qsizetype end = -1;
};

// Nothing when tables are inside others or not closed, or a heading is not ahead of all rows.
std::optional<std::vector<TableInText>> tables_in(const QString& html) {
    static const QRegularExpression tag(
        u"<!--.*?-->|<(/?)(table|thead|tr)\\b"_s,
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    std::vector<TableInText> tables;
    bool open = false;
    bool heading = false;
    for (auto tags = tag.globalMatch(html); tags.hasNext();) {
        const QRegularExpressionMatch found = tags.next();
        const bool opens = found.hasCaptured(1) && found.capturedLength(1) == 0;
        const QStringView name = found.capturedView(2);
        if (is(name, u"table")) {
            if (opens == open) {
                return {};
            }
            open = opens;
            if (opens) {
                tables.emplace_back();
            } else {
                tables.back().end = found.capturedStart();
            }
        } else if (is(name, u"thead")) {
            heading = opens;
            if (!open || (opens && !tables.back().rows.empty())) {
                return {};
            }
        } else if (opens && open && heading) {
            ++tables.back().heading_rows;
        } else if (opens && open) {
            tables.back().rows.push_back(found.capturedStart());
        }
    }
    return open ? std::nullopt : std::optional(std::move(tables));
}

}  // namespace

// Goes through the rows, and through the tags of one.
class ReportRows::Reader {
public:
    Reader(ReportRows& rows, const QString& html) : rows_(rows), html_(html) {}

    // Up to where the next row begins, or for the last one to the end of the table.
    bool read(qsizetype begin, qsizetype end, bool last) {
        const std::size_t first_text = rows_.texts_.size();
        markup_.clear();
        rows_open_ = 0;
        at_ = begin;
        while (at_ < end) {
            if (last && done()) {
                break;
            }
            if (!(html_[at_] == u'<' ? read_tag(end) : read_text(end))) {
                return false;
            }
        }
        if (!done()) {
            return false;
        }
        const Row row{static_cast<int>(rows_.kinds_.size()), first_text};
        const auto known = kinds_.constFind(markup_);
        rows_.rows_.push_back({known == kinds_.constEnd() ? row.kind : *known, first_text});
        if (known == kinds_.constEnd()) {
            kinds_.insert(markup_, row.kind);
            const std::size_t cells = rows_.texts_.size() - first_text;
            rows_.kinds_.push_back({begin, at_, row, std::vector<bool>(cells, false)});
        }
        rows_.end_ = at_;
        return rows_.kinds_.size() <= most_kinds;
    }

private:
    bool done() const { return !markup_.isEmpty() && open_.empty(); }

    bool read_tag(qsizetype end) {
        const qsizetype close = html_.indexOf(u'>', at_);
        if (close < 0 || close >= end) {
            return false;
        }
        const QStringView tag = QStringView(html_).sliced(at_, close + 1 - at_);
        const bool opens = tag[1] != u'/';
        const QStringView words = tag.sliced(opens ? 1 : 2).chopped(1);
        const auto name_end = std::ranges::find_if_not(words, [](QChar c) { return c.isLetter(); });
        const QStringView name = words.first(name_end - words.begin());
        at_ = close + 1;
        markup_ += tag;
        return !words.endsWith(u'/') && (opens ? open(name) : this->close(name));
    }

    bool open(QStringView name) {
        const bool cell = is(name, u"td") || is(name, u"th");
        const bool fits =
            open_.empty() ? is(name, u"tr") && rows_open_++ == 0
            : open_.size() == 1
                ? cell
                : std::ranges::any_of(inside_cells, [&](QStringView other) { return is(name, other); });
        open_.push_back(name);
        has_text_ = has_text_ && open_.size() != 2;
        return fits;
    }

    bool close(QStringView name) {
        if (open_.empty() || !is(name, open_.back())) {
            return false;
        }
        if (open_.size() == 2 && !has_text_) {
            rows_.texts_.emplace_back();
        }
        open_.pop_back();
        return true;
    }

    bool read_text(qsizetype end) {
        const qsizetype next = html_.indexOf(u'<', at_);
        const qsizetype text_end = next < 0 ? end : std::min(next, end);
        const QStringView text = QStringView(html_).sliced(at_, text_end - at_);
        at_ = text_end;
        if (open_.size() < 2) {
            return text.trimmed().isEmpty();
        }
        const std::optional<QString> plain = plain_text(text);
        if (!plain || has_text_) {
            return false;
        }
        has_text_ = true;
        markup_ += plain->contains(u' ') ? u"a b" : u"a";
        rows_.texts_.push_back(*plain);
        return true;
    }

    ReportRows& rows_;
    const QString& html_;
    qsizetype at_ = 0;
    QString markup_;                 // of this row, without its texts
    std::vector<QStringView> open_;  // tags
    int rows_open_ = 0;              // that began since
    bool has_text_ = false;          // the cell
    QHash<QString, int> kinds_;
};

std::optional<ReportRows> ReportRows::find(const QString& html) {
    const auto tables = tables_in(html);
    if (!tables || styled_by_neighbours(html)) {
        return {};
    }
    const auto most = [](const TableInText& table) {
        return table.heading_rows > 0 ? table.rows.size() : 0;
    };
    const auto longest = std::ranges::max_element(*tables, {}, most);
    if (longest == tables->end() || most(*longest) < fewest) {
        return {};
    }
    ReportRows rows;
    rows.table_ = static_cast<int>(longest - tables->begin());
    rows.heading_rows_ = longest->heading_rows;
    rows.begin_ = longest->rows.front();
    Reader reader(rows, html);
    for (std::size_t row = 0; row < longest->rows.size(); ++row) {
        const bool last = row + 1 == longest->rows.size();
        if (!reader.read(longest->rows[row], last ? longest->end : longest->rows[row + 1], last)) {
            return {};
        }
    }
    return rows;
}

QString ReportRows::shortened(const QString& html) const {
    QString text = html.left(begin_);
    for (const Kind& kind : kinds_) {
        text += QStringView(html).sliced(kind.begin, kind.end - kind.begin);
    }
    text += QStringView(html).sliced(end_);
    return text;
}

QString ReportRows::text(const Row& row, std::size_t cell) const {
    const QString& text = texts_[row.first_text + cell];
    const bool joined = kinds_[static_cast<std::size_t>(row.kind)].joined[cell];
    return joined ? QString(text).replace(u' ', QChar::Nbsp) : text;
}

// Null when this table has not the most rows of all with a heading.
const QTextTable* ReportRows::longest_of(const QTextDocument& document, int table, int rows) {
    const QList<QTextFrame*> frames = document.rootFrame()->childFrames();
    for (int i = 0; i < frames.size(); ++i) {
        const auto* other = qobject_cast<QTextTable*>(frames[i]);
        if (other == nullptr ||
            (i != table && other->rows() - other->format().headerRowCount() >= rows)) {
            return nullptr;
        }
    }
    return qobject_cast<QTextTable*>(frames.value(table));
}

bool ReportRows::belong_to(const QTextDocument& document) {
    const QTextTable* table = longest_of(document, table_, static_cast<int>(rows_.size()));
    const int kinds = static_cast<int>(kinds_.size());
    if (table == nullptr || table->format().headerRowCount() != heading_rows_ ||
        table->rows() != heading_rows_ + kinds) {
        return false;
    }
    for (int kind = 0; kind < kinds; ++kind) {
        if (!learn(*table, heading_rows_ + kind, kinds_[static_cast<std::size_t>(kind)])) {
            return false;
        }
    }
    return true;
}

bool ReportRows::learn(const QTextTable& table, int row, Kind& kind) const {
    QTextBlock block = table.cellAt(row, 0).firstCursorPosition().block();
    for (std::size_t cell = 0; cell < kind.joined.size(); ++cell, block = block.next()) {
        QString text = texts_[kind.first.first_text + cell];
        if (block.text() != text) {
            kind.joined[cell] = true;
            if (block.text() != text.replace(u' ', QChar::Nbsp)) {
                return false;
            }
        }
    }
    const bool last = row + 1 == table.rows();
    return last ? block.position() == table.lastPosition() + 1
                : block == table.cellAt(row + 1, 0).firstCursorPosition().block();
}

}  // namespace kelvar
