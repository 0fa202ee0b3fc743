#include "widgets/controls.h"

#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QStyleOptionGroupBox>
#include <QStylePainter>
#include <QToolButton>
#include <algorithm>

#include "core/dates.h"
#include "widgets/entry_boxes.h"
#include "widgets/text.h"
#include "widgets/theme.h"

namespace kelvar {

namespace {

// A group box whose caption begins at the left edge of its contents. Under a style sheet the toolkit
// centres the caption in a room that counts the sign of its shortcut, so that it begins anywhere.
class CaptionedFrame : public QGroupBox {
public:
    using QGroupBox::QGroupBox;

protected:
    void paintEvent(QPaintEvent* event) override;
};

void CaptionedFrame::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionGroupBox option;
    initStyleOption(&option);
    option.text.clear();
    painter.drawComplexControl(QStyle::CC_GroupBox, option);
    // Not the layout's own place, which can be behind the frame's when the frame is painted.
    const QRect contents = contentsRect().marginsRemoved(layout()->contentsMargins());
    QFont semibold = font();
    semibold.setWeight(QFont::DemiBold);
    painter.setFont(semibold);
    const int top = contentsRect().top() - painter.fontMetrics().height();
    painter.drawText(QRect(contents.left(), top, contents.width(), contentsRect().top()),
                     Qt::AlignLeft | Qt::AlignTop | Qt::TextShowMnemonic, title());
}

// Running text: its lines end where the eye still finds the next one, however wide the label is. With a
// maximum width of the label its height would be reckoned for the full width.
class Prose : public QLabel {
public:
    using QLabel::QLabel;
    int heightForWidth(int width) const override {
        return QLabel::heightForWidth(std::min(width, theme::widest_paragraph()) +
                                      contentsMargins().right());
    }

protected:
    void resizeEvent(QResizeEvent* event) override {
        setContentsMargins(0, 0, std::max(0, width() - theme::widest_paragraph()), 0);
        QLabel::resizeEvent(event);
    }
};

}  // namespace

QStringList month_entries(const std::vector<int>& months) {
    QStringList entries;
    for (const int month : months) {
        entries << to_qt(month_name(month));
    }
    return entries;
}

QStringList year_entries(const std::vector<int>& years) {
    QStringList entries;
    for (const int year : years) {
        entries << QString::number(year);
    }
    return entries;
}

namespace control {

QPushButton* button(const QString& text, const char* name) {
    auto* button = new QPushButton;
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(true);
    button->setFixedHeight(theme::button_height());
    set_caption(button, text);
    return button;
}

void set_caption(QPushButton* button, const QString& text) {
    constexpr int usual = 8 * theme::grid;
    const int words = button->fontMetrics().size(Qt::TextShowMnemonic, text).width();
    const int needed = words + 2 * theme::button_padding() + 2;
    button->setText(text);
    button->setMinimumWidth(theme::large_text() ? needed : std::max(usual, needed));
}

void make_default(QPushButton* button) {
    button->setDefault(true);
    button->setProperty("primary", true);
}

QToolButton* picture(const QString& icon, const QString& accessible_name, const char* name) {
    auto* picture = new QToolButton;
    picture->setObjectName(QString::fromLatin1(name));
    picture->setIcon(theme::icon(icon));
    picture->setIconSize(QSize(24, 24));
    picture->setAccessibleName(accessible_name);
    picture->setToolTip(accessible_name);
    picture->setFocusPolicy(Qt::StrongFocus);
    return picture;
}

QLabel* words_beside(QToolButton* picture, const QString& text, const char* name) {
    QLabel* words = theme::label(text, theme::Role::link, name);
    words->setWordWrap(theme::large_text());
    words->setBuddy(picture);
    words->setCursor(Qt::PointingHandCursor);
    return words;
}

QGroupBox* frame(const QString& caption, const char* name) {
    auto* frame = new CaptionedFrame(caption);
    frame->setObjectName(QString::fromLatin1(name));
    return frame;
}

QBoxLayout* row() {
    return new QBoxLayout(theme::large_text() ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
}

QLabel* paragraph(const QString& text, const char* name, theme::Role role) {
    auto* label = new Prose(text);
    label->setTextFormat(Qt::PlainText);
    label->setObjectName(QString::fromLatin1(name));
    label->setWordWrap(true);
    theme::set_role(label, role);
    return label;
}

void refill(QComboBox* list, const QStringList& entries, const QString& wished) {
    QStringList present;
    for (int index = 0; index < list->count(); ++index) {
        present << list->itemText(index);
    }
    if (present != entries) {
        list->hidePopup();
    }
    const QSignalBlocker quiet(list);
    if (present != entries) {
        list->clear();
        list->addItems(entries);
    }
    list->setCurrentIndex(std::max(0, static_cast<int>(entries.indexOf(wished))));
}

void press_with(const QKeySequence& keys, QAbstractButton* button, QWidget* screen) {
    auto* shortcut = new QShortcut(keys, screen);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    shortcut->setAutoRepeat(false);
    QObject::connect(shortcut, &QShortcut::activated, button, &QAbstractButton::click);
}

void only_closes(QDialog* dialog) {
    dialog->setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                           Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
}

QComboBox* list(const char* name, const QString& accessible_name) {
    auto* list = new QComboBox;
    list->setObjectName(QString::fromLatin1(name));
    list->setAccessibleName(accessible_name);
    list->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    list->setMinimumContentsLength(9);
    list->setMaxVisibleItems(12);
    return list;
}

QLineEdit* number_box(const char* name, const QString& accessible_name, const QString& widest) {
    auto* box = new EntryBox;
    box->setObjectName(QString::fromLatin1(name));
    box->setAccessibleName(accessible_name);
    box->setAlignment(Qt::AlignRight);
    box->setFixedWidth(box->fontMetrics().horizontalAdvance(widest) +
                       4 * box->fontMetrics().averageCharWidth());
    return box;
}

QLineEdit* money_box(const char* name, const QString& accessible_name) {
    return number_box(name, accessible_name, QStringLiteral("9,999,999,999,999.99"));
}

}  // namespace control

}  // namespace kelvar
