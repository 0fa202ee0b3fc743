// The screens that only tell, and close with one button or lead on.
#pragma once

#include <QDialog>
#include <vector>

#include "shell/screen.h"

namespace kelvar {

class Grid;

// How to make payments last longer: the explanation with a chart.
class frmvang : public Screen {
    Q_OBJECT

public:
    explicit frmvang(Module1& module);

protected:
    void go_next() override;
};

// How to make payments last longer: the table of durations.
class frmvang1 : public Screen {
    Q_OBJECT

public:
    explicit frmvang1(Module1& module);

protected:
    void go_next() override;

private:
    QWidget* build_table();
};

// The whole single life expectancy and minimum distribution table, in the table's own order.
class frmlife : public Screen {
    Q_OBJECT

public:
    explicit frmlife(Module1& module);
    void load() override;
    void activate() override;

private:
    void add_grid();

    Grid* grdlife = nullptr;
};

// All four portfolios.
class frmdnote : public Screen {
    Q_OBJECT

public:
    explicit frmdnote(Module1& module);
};

// One portfolio, where the user pointed on the rates screen.
class frmPortfolios : public QDialog {
    Q_OBJECT

public:
    frmPortfolios(const Module1& module, QWidget* parent);
};

// The disclaimer, shown over a result. Enter, Escape or its button close it.
class frmclaim : public QDialog {
    Q_OBJECT

public:
    explicit frmclaim(QWidget* parent);
};

// Fixed texts with one button that closes them and returns to the screen beneath.
struct Note {
    ScreenId id;
    const char* name;
    std::vector<Paragraph> paragraphs;
};

// All notes that are nothing but text.
const std::vector<Note>& notes();

class NoteScreen : public Screen {
    Q_OBJECT

public:
    NoteScreen(Module1& module, const Note& note);
};

}  // namespace kelvar
