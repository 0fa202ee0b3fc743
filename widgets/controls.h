// Controls that every screen builds alike, and the entries of lists.
#pragma once

#include <QBoxLayout>
#include <QString>
#include <QStringList>
#include <vector>

#include "widgets/theme.h"

class QAbstractButton;
class QComboBox;
class QDialog;
class QGroupBox;
class QKeySequence;
class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;

namespace kelvar {

QStringList month_entries(const std::vector<int>& months);  // "January", ...
QStringList year_entries(const std::vector<int>& years);    // "2020", ...

namespace control {

QPushButton* button(const QString& text, const char* name);
void set_caption(QPushButton* button, const QString& text);
// What acts is filled: Next, and the OK of a note.
void make_default(QPushButton* button);
// A picture that acts: a button for the mouse, the keyboard and screen readers.
QToolButton* picture(const QString& icon, const QString& accessible_name, const char* name);
// The words beside a picture; on a Screen a click on them presses it.
QLabel* words_beside(QToolButton* picture, const QString& text, const char* name);
QGroupBox* frame(const QString& caption, const char* name);
// Side by side, or below each other when the text is large.
QBoxLayout* row();
// A wrapped label for running text, of lines that the eye can follow.
QLabel* paragraph(const QString& text, const char* name = nullptr,
                  theme::Role role = theme::Role::note);
// Replaces the entries of a list and chooses the wished one if it is there, else the first. Gives no
// signal. An open list whose entries stay the same stays open.
void refill(QComboBox* list, const QStringList& entries, const QString& wished);
// Keys that press a button wherever the focus is on its screen, also where letters are typed or looked
// for.
void press_with(const QKeySequence& keys, QAbstractButton* button, QWidget* screen);
// A window over the main one can be closed but neither minimised nor maximised. Before it is shown.
void only_closes(QDialog* dialog);

QComboBox* list(const char* name, const QString& accessible_name);
// A text box for a number, wide enough for the widest one that is usual.
QLineEdit* number_box(const char* name, const QString& accessible_name, const QString& widest);
// A text box for an amount, wide enough for the largest accepted one.
QLineEdit* money_box(const char* name, const QString& accessible_name);

}  // namespace control

}  // namespace kelvar
