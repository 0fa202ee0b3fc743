// The look of the program in one place: one palette, light or dark as the desktop is, one type scale
// that follows the desktop's font size, one set of icons.
#pragma once

#include <QColor>
#include <QIcon>
#include <QLabel>
#include <array>

class QApplication;

namespace kelvar::theme {

// Distances are multiples or simple parts of this, in device-independent pixels.
inline constexpr int grid = 8;

// Sets style, palette, fonts and style sheet. Called once, before the first window.
void apply(QApplication& application);

// What is wider than the first is centred in a larger window; running text ends at the second, for the
// eye to find the next line. In device-independent pixels.
inline constexpr int widest_content = 1100;
int widest_paragraph();
// Of all buttons in a row; left and right of their words.
int button_height();
int button_padding();

// True when the desktop's font is so large, or its display so narrow, that what otherwise stands side
// by side goes below each other, so that nothing needs sideways scrolling.
bool large_text();
// True then, and when the display is too low for the standard size: what is only air gives way.
bool low_display();
// Margin left and right on every screen, narrower for large text.
int side_margin();

struct Colors {
    QColor window;
    QColor card;
    QColor field;    // text boxes, lists, tables
    QColor border;   // of cards and tables
    QColor outline;  // of what can be filled in or ticked, also while it is disabled
    QColor band;
    QColor band_text;
    QColor text;
    QColor note;
    QColor disabled;  // texts and pictures
    QColor accent;    // links, focus and data
    QColor warning;   // the sign of a message
    QColor quiet;     // ground of headers and strips, and of a button under the pointer
    QColor selected;  // ground of what is chosen, without the focus
    QColor filled;    // ground of what is chosen with the focus, and of the default button
    QColor on_filled;
    QColor chosen;                // what the keys or the pointer say of a chart
    std::array<QColor, 4> lines;  // of a chart
};
const Colors& colors();

// Of everything printed, whatever fonts this machine has: all figures have the same width, and no two
// letters share a glyph, so that they are copied from a PDF as letters.
QFont paper_font(double points);

// What a label is for decides its size and colour.
enum class Role { body, title, subtitle, section, value, note, link };
QLabel* label(const QString& text, Role role, const char* name = nullptr);
// The same for a label that is shown already.
void set_role(QLabel* label, Role role);

// One of our own drawings from widgets/icons in the accent or its own colour: for a button, or as a
// picture of a size in device-independent pixels.
QIcon icon(const QString& name);
QPixmap picture(const QString& name, int size);
// A transparent square to draw on, as sharp as the display.
QPixmap canvas(int side);
// The square beside a word of a legend, filled with this pattern in the accent colour.
QPixmap legend_key(Qt::BrushStyle pattern);

}  // namespace kelvar::theme
