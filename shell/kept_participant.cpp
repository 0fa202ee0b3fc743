#include "shell/kept_participant.h"

#include <QClipboard>
#include <QDialog>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <utility>

#include "participant/participant_file.h"
#include "shell/main_window.h"
#include "shell/saved_file.h"
#include "shell/screen.h"
#include "widgets/message_dialog.h"
#include "widgets/text.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

const FileKind kind{
    .dialog = "participantfile", .names = u"Participants (*.kelvar)"_s, .suffix = u"kelvar"_s};

}  // namespace

KeptParticipant::KeptParticipant(MainWindow& window, Module1& module)
    : window_(window), module_(module) {
    constexpr int soon = 200;  // ms; every box, list and tick can change something
    looks_for_changes_.setInterval(soon);
    connect(&looks_for_changes_, &QTimer::timeout, this,
            [this] { window_.setWindowModified(has_changed()); });
}

// Steps that were not reached yet are as the file has them.
Entries KeptParticipant::entered() const {
    Entries entries = opened_.value_or(Entries{});
    for (const ScreenId step :
         {ScreenId::frmdist1, ScreenId::frmdist2, ScreenId::frmdist3, ScreenId::frmdrate}) {
        if (const Screen* screen = window_.screen_of(step)) {
            screen->put_into(entries);
        }
    }
    if (module_.visit.shown_rate) {
        entries.shown_rate = module_.visit.shown_rate;
    }
    entries.choices = module_.visit.choices;
    return entries;
}

// From now on this is the file of what is entered, which it holds.
void KeptParticipant::keep(const QString& path) {
    path_ = path;
    kept_ = entered();
    window_.setWindowTitle(QFileInfo(path).fileName() + u"[*] - Kelvar"_s);
    window_.setWindowModified(false);
    looks_for_changes_.start();
}

void KeptParticipant::forget_file() {
    path_.clear();
    opened_.reset();
    looks_for_changes_.stop();
    window_.setWindowModified(false);
    window_.setWindowTitle(u"Kelvar"_s);
}

bool KeptParticipant::save(bool under_another_name) {
    const Entries entries = entered();
    QString path = path_;
    if (path.isEmpty() || under_another_name) {
        const QString proposed = path.isEmpty() ? proposed_name(entries.name.value_or(""))
                                                : QFileInfo(path).completeBaseName();
        path = ask_where_to_save(&window_, u"Save Participant"_s, proposed, kind);
    }
    if (path.isEmpty()) {
        return false;
    }
    try {
        write_whole(module_, path, QByteArray::fromStdString(participant_text(entries)));
    } catch (const FileError& error) {
        module_.screens.show_message(std::string("Nothing was saved.\n\n") + error.what());
        return false;
    }
    remember_folder(&window_, path);
    keep(path);
    window_.visible_screen()->say(saved_to(path));
    return true;
}

bool KeptParticipant::leave() {
    if (has_changed()) {
        const int answer =
            window_.ask_to_save(u"Save the changes to %1?"_s.arg(QFileInfo(path_).fileName()));
        const bool leaves =
            answer == MessageDialog::said_no || (answer == QDialog::Accepted && save(false));
        if (!leaves) {
            return false;
        }
    }
    forget_file();
    module_.visit = {};
    return true;
}

bool KeptParticipant::begin_anew() {
    if (!module_.return_to_menu()) {
        return false;
    }
    window_.close_all_but_the_menu();
    module_.forget_participant();
    QClipboard* clipboard = QGuiApplication::clipboard();
    if (clipboard->ownsClipboard()) {
        clipboard->clear();
    }
    if (clipboard->ownsSelection()) {  // what was last marked, where the desktop has that
        clipboard->clear(QClipboard::Selection);
    }
    return true;
}

void KeptParticipant::ask_and_open() {
    const QString path = ask_which_to_open(&window_, u"Open Participant"_s, kind);
    if (!path.isEmpty()) {
        open(path);
    }
}

void KeptParticipant::open(const QString& path) {
    Entries entries;
    try {
        entries = read_participant(QFile::encodeName(path).toStdString());
    } catch (const ParticipantFileError& error) {
        module_.screens.show_message(error.what());
        return;
    }
    if (!begin_anew()) {
        return;
    }
    remember_folder(&window_, path);
    module_.visit.choices = std::exchange(entries.choices, {});
    type(std::move(entries));
    keep(path);
}

void KeptParticipant::enter(const Entries& entries) {
    Entries of_participant = entries;
    of_participant.name = entered().name;
    window_.show(ScreenId::frmdist);
    window_.close_all_but_the_menu();
    type(std::move(of_participant));
}

void KeptParticipant::type(Entries entries) {
    opened_ = std::move(entries);
    window_.show(ScreenId::frmdist1);
    while (std::exchange(goes_on_, false)) {
        window_.visible_screen()->press_next();
    }
}

void KeptParticipant::fill(ScreenId id) {
    if (opened_) {
        goes_on_ = window_.screen_of(id)->take(*opened_);
    } else if (id == ScreenId::frmdist && !waiting_.isEmpty()) {
        QMetaObject::invokeMethod(
            this, [this] { open(std::exchange(waiting_, {})); }, Qt::QueuedConnection);
    }
}

}  // namespace kelvar
