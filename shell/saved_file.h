// Files that the user saves: which name is proposed, where they go, and that they are written whole.
#pragma once

#include <QByteArray>
#include <QString>

#include <string>

#include "core/module1.h"
#include "core/whole_file.h"

class QWidget;

namespace kelvar {

// What a file is called without its suffix, such as "Ann Example - Periodic Payments 5% 2020-01-15";
// participant and rate may be empty. What no file name can hold becomes a dash.
QString proposed_name(const std::string& participant, const QString& title, const QString& rate,
                      Date day);
// The same of a participant's own file.
QString proposed_name(const std::string& participant);

struct FileKind {
    const char* dialog;  // object name of the dialog
    QString names;       // such as "PDF files (*.pdf)"
    QString suffix;
};

// Asks over the main window that `window` is in, first in the folder that was last saved to. Empty when
// the user cancels.
QString ask_where_to_save(QWidget* window, const QString& title, const QString& name,
                          const FileKind& kind);

// The same for a file to be opened.
QString ask_which_to_open(QWidget* window, const QString& title, const FileKind& kind);

// The folder of a file that was saved or opened is offered first from then on, until the program ends.
void remember_folder(QWidget* window, const QString& path);

// What to say of a file that was saved.
QString saved_to(const QString& path);

// The same as write_whole of core/whole_file.h.
void write_whole(const Module1& module, const QString& path, const QByteArray& contents);

// Saves a table as a CSV file that the user names. What goes wrong is one message and leaves nothing
// behind. Returns what to say of the file that was written, or nothing.
QString save_csv(Module1& module, QWidget* window, const QString& name, const QByteArray& table);

}  // namespace kelvar
