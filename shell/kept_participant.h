// The participant on the screens as a file: saving, opening, and whether anything has changed since.
#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <optional>

#include "core/entries.h"
#include "core/module1.h"

namespace kelvar {

class MainWindow;

class KeptParticipant : public QObject {
    Q_OBJECT

public:
    KeptParticipant(MainWindow& window, Module1& module);

    // What the core asks of Screens by the same names. `save` is false where nothing was saved.
    bool save(bool under_another_name);
    bool leave();
    bool begin_anew();

    void ask_and_open();
    // Opening is typing: the entries go through the screens in their order, with Next after each, as
    // far as they go or until one is refused. A file that is none leaves everything as it is.
    void open(const QString& path);
    // The same when the menu is in front for the first time.
    void open_at_the_menu(const QString& path) { waiting_ = path; }

    // A screen was made: enters what the file that was opened has for it.
    void fill(ScreenId id);

    Entries entered() const;
    void enter(const Entries& entries);

private:
    bool has_changed() const { return !path_.isEmpty() && entered() != kept_; }
    void keep(const QString& path);
    void type(Entries entries);
    void forget_file();

    MainWindow& window_;
    Module1& module_;
    QString path_;                   // of its file; empty while it has none
    Entries kept_;                   // as the file has them
    std::optional<Entries> opened_;  // for screens that are still to come
    bool goes_on_ = false;           // Next can follow on the screen that was filled last
    QString waiting_;                // for the menu
    QTimer looks_for_changes_;
};

}  // namespace kelvar
