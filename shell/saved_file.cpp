#include "shell/saved_file.h"

#include <QDate>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStandardPaths>

#include "widgets/hourglass.h"
#include "widgets/text.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

constexpr qsizetype longest_title = 150;            // bytes; a file name takes 255
constexpr const char* last_folder = "last_folder";  // a property of the main window

// Where the user saved last, or keeps documents.
QDir folder_to_offer(const QWidget* main_window) {
    const QDir last(main_window->property(last_folder).toString());
    const QDir documents(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    if (!main_window->property(last_folder).isNull() && last.exists()) {
        return last;
    }
    return documents.exists() ? documents : QDir::home();
}

QString possible_name(const QString& wished, const QString& otherwise) {
    static const QRegularExpression never(uR"([/\\:*?"<>|]|\p{C})"_s);
    static const QRegularExpression hidden(u"^[. ]+"_s);
    QString name = wished.left(longest_title).replace(never, u"-"_s).simplified().remove(hidden);
    while (name.toUtf8().size() > longest_title) {
        name.chop(1);
    }
    return name.isEmpty() ? otherwise : name;
}

QString chosen_file(QFileDialog& dialog, const FileKind& kind, const QString& proposed) {
    QWidget* main_window = dialog.parentWidget();
    dialog.setObjectName(QString::fromLatin1(kind.dialog));
    dialog.setNameFilter(kind.names);
    dialog.setDefaultSuffix(kind.suffix);
    dialog.setDirectory(folder_to_offer(main_window));
    dialog.selectFile(proposed);
    const bool accepted = dialog.exec() == QDialog::Accepted;
    main_window->activateWindow();  // some window managers lose it when a file is replaced
    return accepted ? dialog.selectedFiles().value(0) : QString();
}

}  // namespace

QString proposed_name(const std::string& participant, const QString& title, const QString& rate,
                      Date day) {
    const QString of = participant.empty() ? QString() : to_qt(participant) + u" - "_s;
    const QString date = QDate(year_of(day), month_of(day), day_of(day)).toString(Qt::ISODate);
    return u"%1 %2 %3"_s.arg(possible_name(of + title, u"Report"_s), rate, date).simplified();
}

QString proposed_name(const std::string& participant) {
    return possible_name(to_qt(participant), u"Participant"_s);
}

QString ask_where_to_save(QWidget* window, const QString& title, const QString& name,
                          const FileKind& kind) {
    QFileDialog dialog(window->window(), title);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    return chosen_file(dialog, kind, name + u'.' + kind.suffix);
}

QString ask_which_to_open(QWidget* window, const QString& title, const FileKind& kind) {
    QFileDialog dialog(window->window(), title);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return chosen_file(dialog, kind, {});
}

void remember_folder(QWidget* window, const QString& path) {
    window->window()->setProperty(last_folder, QFileInfo(path).absolutePath());
}

QString saved_to(const QString& path) {
    return u"Saved to "_s + QDir::toNativeSeparators(path);
}

void write_whole(const Module1& module, const QString& path, const QByteArray& contents) {
    write_whole(module.program_file({}), QFile::encodeName(path).toStdString(), contents.toStdString());
}

QString save_csv(Module1& module, QWidget* window, const QString& name, const QByteArray& table) {
    QString path =
        ask_where_to_save(window, u"Save as CSV"_s, name,
                          {.dialog = "savecsv", .names = u"CSV files (*.csv)"_s, .suffix = u"csv"_s});
    if (path.isEmpty()) {
        return {};
    }
    try {
        const Hourglass hourglass;
        write_whole(module, path, table);
        remember_folder(window, path);
    } catch (const FileError& error) {
        module.screens.show_message(std::string("Nothing was saved.\n\n") + error.what());
        return {};
    }
    return saved_to(path);
}

}  // namespace kelvar
