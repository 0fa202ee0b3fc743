#include "widgets/theme.h"

#include <QApplication>
#include <QFile>
#include <QFontDatabase>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QScreen>
#include <QStyle>
#include <QSvgRenderer>
#include <algorithm>

#include "widgets/outlined_style.h"

using namespace Qt::StringLiterals;

// Drawings and fonts are linked in from a static library, so they must be asked for. (The macro works
// in the global namespace only.)
static void use_resources() {
    Q_INIT_RESOURCE(icons);
    Q_INIT_RESOURCE(paper_fonts);
}

namespace kelvar::theme {

namespace {

Colors make_colors(bool dark) {
    if (dark) {
        return {.window = QColor(0x1b, 0x21, 0x27),
                .card = QColor(0x25, 0x2d, 0x35),
                .field = QColor(0x36, 0x41, 0x4c),
                .border = QColor(0x5a, 0x67, 0x74),
                .outline = QColor(0x9a, 0xa7, 0xb3),
                .band = QColor(0x0f, 0x2f, 0x46),
                .band_text = QColor(0xff, 0xff, 0xff),
                .text = QColor(0xe8, 0xed, 0xf2),
                .note = QColor(0xb8, 0xc4, 0xcf),
                .disabled = QColor(0xa2, 0xae, 0xb9),
                .accent = QColor(0x7c, 0xbd, 0xe8),
                .warning = QColor(0xf0, 0xb3, 0x4a),
                .quiet = QColor(0x30, 0x3a, 0x45),
                .selected = QColor(0x2b, 0x4a, 0x60),
                .filled = QColor(0x2a, 0x74, 0xaa),
                .on_filled = QColor(0xff, 0xff, 0xff),
                .chosen = QColor(0xd6, 0xec, 0xfa),
                .lines = {QColor(0x7c, 0xbd, 0xe8), QColor(0xf0, 0xa4, 0x5d), QColor(0x4f, 0xc3, 0xb1),
                          QColor(0xc7, 0x9b, 0xe6)}};
    }
    return {.window = QColor(0xf2, 0xf5, 0xf8),
            .card = QColor(0xff, 0xff, 0xff),
            .field = QColor(0xff, 0xff, 0xff),
            .border = QColor(0xc3, 0xcd, 0xd7),
            .outline = QColor(0x73, 0x80, 0x8d),
            .band = QColor(0x17, 0x40, 0x5f),
            .band_text = QColor(0xff, 0xff, 0xff),
            .text = QColor(0x1d, 0x28, 0x33),
            .note = QColor(0x4a, 0x57, 0x64),
            .disabled = QColor(0x64, 0x6f, 0x7a),
            .accent = QColor(0x1a, 0x66, 0x9c),
            .warning = QColor(0xb8, 0x6e, 0x00),
            .quiet = QColor(0xe3, 0xeb, 0xf2),
            .selected = QColor(0xd5, 0xe6, 0xf3),
            .filled = QColor(0x1a, 0x66, 0x9c),
            .on_filled = QColor(0xff, 0xff, 0xff),
            .chosen = QColor(0x17, 0x40, 0x5f),
            .lines = {QColor(0x1a, 0x66, 0x9c), QColor(0xb4, 0x53, 0x09), QColor(0x00, 0x78, 0x6c),
                      QColor(0x7a, 0x3e, 0x9d)}};
}

bool dark_ = false;
Colors colors_ = make_colors(false);

QPalette palette() {
    const Colors& c = colors_;
    QPalette palette;
    palette.setColor(QPalette::Window, c.window);
    palette.setColor(QPalette::WindowText, c.text);
    palette.setColor(QPalette::Base, c.field);
    palette.setColor(QPalette::AlternateBase, dark_ ? c.field.darker(112) : QColor(0xee, 0xf3, 0xf7));
    palette.setColor(QPalette::Text, c.text);
    palette.setColor(QPalette::PlaceholderText, c.note);
    palette.setColor(QPalette::Button, dark_ ? QColor(0x33, 0x3d, 0x47) : QColor(0xfa, 0xfb, 0xfc));
    palette.setColor(QPalette::ButtonText, c.text);
    palette.setColor(QPalette::ToolTipBase, c.card);
    palette.setColor(QPalette::ToolTipText, c.text);
    palette.setColor(QPalette::Link, c.accent);
    palette.setColor(QPalette::Highlight, c.filled);
    palette.setColor(QPalette::HighlightedText, c.on_filled);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, c.disabled);
    }
    palette.setColor(QPalette::Disabled, QPalette::Base, c.window);
    return palette;
}

QString style_sheet(const QFont& font) {
    const Colors& c = colors_;
    const double base = font.pointSizeF();
    const int indicator = QFontInfo(font).pixelSize() / 2 * 2;  // even, else circles are off centre
    const auto points = [&](double factor) { return QString::number(base * factor, 'f', 1); };
    return uR"(
        QFrame#titleband { background: %1; border: none; }
        QFrame#titleband QLabel { color: %2; background: transparent; }
        QFrame#navigation { background: %3; border: none; border-top: 1px solid %4; }
        QGroupBox { background: %3; border: 1px solid %4; border-radius: 6px; margin-top: 0px;
                    padding: %10px 8px 4px 8px; }
        QGroupBox:flat { border: none; padding: %21px 0px 0px 0px; }
        QFrame#card, QFrame#summary, kelvar--Chart {
            background: %3; border: 1px solid %4; border-radius: 6px; }
        QFrame#summary:focus, kelvar--Chart:focus { border: 2px solid %5; }
        QLabel[role="title"] { font-size: %6pt; font-weight: 600; }
        QPushButton#lblkelv { font-size: %9pt; font-weight: 700; color: %5; border: none;
                              background: transparent; padding: 0px 16px; }
        QPushButton#lblkelv:focus { text-decoration: underline; }
        QLabel[role="subtitle"] { font-size: %7pt; }
        QLabel[role="section"] { font-weight: 600; }
        QLabel[role="value"] { font-weight: 600; }
        QLabel[role="note"] { font-size: %8pt; color: %11; }
        QLabel[role="link"] { color: %5; }
        QPushButton, QToolButton { background: %3; border: 1px solid %16; border-radius: 4px; }
        QPushButton { padding: 0px %22px; }
        QToolButton { padding: 1px; }
        QPushButton:hover, QToolButton:hover { background: %12; }
        QPushButton:pressed, QToolButton:pressed { background: %17; }
        QPushButton:disabled, QToolButton:disabled { color: %14; }
        QPushButton[primary="true"]:enabled, QDialog QPushButton:default:enabled {
            background: %18; border-color: %18; color: %19; }
        QPushButton[primary="true"]:hover, QDialog QPushButton:default:hover { background: %1; }
        QAbstractButton[joined="left"] { border-top-right-radius: 0px; border-bottom-right-radius: 0px;
                                         border-right: none; }
        QAbstractButton[joined="right"] { border-top-left-radius: 0px; border-bottom-left-radius: 0px; }
        QFrame#navigation[apart="true"] QPushButton[joined] { border: 1px solid %16; border-radius: 4px; }
        QToolBar QToolButton { border: none; }
        kelvar--ViewChoice QRadioButton { background: %3; border: 1px solid %16; padding: 0px 16px; }
        kelvar--ViewChoice QRadioButton:hover { background: %12; }
        kelvar--ViewChoice QRadioButton:checked { background: %17; border-color: %5; font-weight: 600; }
        kelvar--ViewChoice QRadioButton::indicator { width: 0px; height: 0px; }
        QFrame#strip { background: %12; border: 1px solid %4; border-top: none; }
        QLabel#lblheadline { font-size: %20pt; }
        QLabel#lblmorebelow { background: %12; border: 1px solid %4; border-radius: 10px; }
        QMenu { border: 1px solid %4; }
        QToolButton::menu-indicator { image: none; }
        QPushButton::menu-indicator { subcontrol-origin: padding; subcontrol-position: right center; }
        QComboBox { combobox-popup: 0; }
        QCheckBox::indicator, QRadioButton::indicator { width: %15px; height: %15px; }
        QLabel:disabled { color: %14; }
        QScrollArea { background: transparent; border: none; }
        QWidget#content { background: transparent; }
        QHeaderView::section { background: %12; color: %13; font-weight: 600; border: none;
                               border-bottom: 1px solid %4; padding: 2px 8px; }
        QTableView { border: 1px solid %4; gridline-color: transparent; }
        kelvar--Grid[close="true"] QHeaderView::section { padding: 2px 4px 2px 3px; }
        QTableView:focus { border: 2px solid %5; }
    )"_s.arg(c.band.name(), c.band_text.name(), c.card.name(), c.border.name(), c.accent.name(),
             points(1.6), points(1.1), points(1.0), points(3.2))
        .arg(QFontMetrics(font).height() + theme::grid)
        .arg(c.note.name(), c.quiet.name(), c.text.name(), c.disabled.name())
        .arg(indicator)
        .arg(c.outline.name(), c.selected.name(), c.filled.name(), c.on_filled.name(),
             points(large_text() ? 1.0 : 1.2))
        .arg(QFontMetrics(font).height())
        .arg(button_padding());
}

const char* role_name(Role role) {
    switch (role) {
        case Role::title:
            return "title";
        case Role::subtitle:
            return "subtitle";
        case Role::section:
            return "section";
        case Role::value:
            return "value";
        case Role::note:
            return "note";
        case Role::link:
            return "link";
        default:
            return "body";
    }
}

QByteArray drawing(const QString& name) {
    QFile file(u":/icons/"_s + name + u".svg"_s);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void draw(const QString& name, const QColor& color, QPainter& painter, const QRect& place) {
    QSvgRenderer(drawing(name).replace("currentColor", color.name().toUtf8())).render(&painter, place);
}

// Drawn when it is shown, in the size and state it is shown in: most screens are seen in one state
// only.
class DrawnIcon : public QIconEngine {
public:
    explicit DrawnIcon(const QString& name) : name_(name) {}

    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State) override {
        const QColor usual = name_ == u"warning" ? colors_.warning : colors_.accent;
        draw(name_, mode == QIcon::Disabled ? colors_.disabled : usual, *painter, place);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, pixmap.rect(), mode, state);
        return pixmap;
    }

    // For who lists windows.
    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override {
        return {QSize(16, 16), QSize(32, 32), QSize(48, 48)};
    }

    QIconEngine* clone() const override { return new DrawnIcon(name_); }

private:
    QString name_;
};

}  // namespace

void apply(QApplication& application) {
    use_resources();
    QLocale::setDefault(QLocale::c());
    dark_ = application.palette().color(QPalette::Window).lightness() < 128;
    colors_ = make_colors(dark_);
    QApplication::setStyle(new OutlinedStyle);
    QFont font = application.font();
    font.setPointSizeF(std::max(11.0, font.pointSizeF()));
    application.setFont(font);
    application.setPalette(palette());
    application.setStyleSheet(style_sheet(font));
    application.setWindowIcon(icon(u"kelvar"_s));
}

bool large_text() {
    constexpr double usual_up_to = 16.0;  // points
    constexpr int narrowest_usual = 860;  // pixels, for a screen of the standard size
    return QApplication::font().pointSizeF() > usual_up_to ||
           QGuiApplication::primaryScreen()->availableGeometry().width() < narrowest_usual;
}

bool low_display() {
    constexpr int lowest_usual = 724;  // pixels, for a window of the standard size with its frame
    return large_text() ||
           QGuiApplication::primaryScreen()->availableGeometry().height() < lowest_usual;
}

int widest_paragraph() {
    constexpr int usual = 80;  // letters
    return usual * QFontMetrics(QApplication::font()).averageCharWidth();
}

int button_padding() {
    return large_text() ? grid / 2 : 5 * grid / 4;
}

int button_height() {
    return QFontMetrics(QApplication::font()).height() + (large_text() ? grid : 3 * grid / 2);
}

int side_margin() {
    return large_text() ? 3 * grid / 2 : 3 * grid;
}

const Colors& colors() {
    return colors_;
}

QFont paper_font(double points) {
    static const QString family = [] {
        const int regular = QFontDatabase::addApplicationFont(u":/fonts/OpenSans-Regular.ttf"_s);
        QFontDatabase::addApplicationFont(u":/fonts/OpenSans-Bold.ttf"_s);
        return QFontDatabase::applicationFontFamilies(regular).value(0);
    }();
    QFont font(family);
    font.setPointSizeF(points);
    font.setLetterSpacing(QFont::AbsoluteSpacing, 0.02);  // with any, no ligatures are set
    return font;
}

QLabel* label(const QString& text, Role role, const char* name) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setProperty("role", QString::fromLatin1(role_name(role)));
    if (name != nullptr) {
        label->setObjectName(QString::fromLatin1(name));
    }
    return label;
}

void set_role(QLabel* label, Role role) {
    label->setProperty("role", QString::fromLatin1(role_name(role)));
    label->style()->unpolish(label);
    label->style()->polish(label);
}

QIcon icon(const QString& name) {
    return QIcon(new DrawnIcon(name));
}

QPixmap picture(const QString& name, int size) {
    return icon(name).pixmap(size);
}

QPixmap canvas(int side) {
    const double sharpness = qApp->devicePixelRatio();
    QPixmap canvas(QSize(side, side) * sharpness);
    canvas.setDevicePixelRatio(sharpness);
    canvas.fill(Qt::transparent);
    return canvas;
}

QPixmap legend_key(Qt::BrushStyle pattern) {
    constexpr int side = 2 * grid;
    QPixmap key = canvas(side);
    QPainter painter(&key);
    painter.setPen(QPen(colors_.accent, 1.5));
    painter.setBrush(QBrush(colors_.accent, pattern));
    painter.drawRect(1, 1, side - 3, side - 3);
    return key;
}

}  // namespace kelvar::theme
