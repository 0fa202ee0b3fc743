#include "widgets/grid.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionHeader>
#include <QStyledItemDelegate>
#include <algorithm>

#include "widgets/table_model.h"
#include "widgets/table_text.h"
#include "widgets/theme.h"

using namespace Qt::StringLiterals;

namespace kelvar {

namespace {

// Beside the texts of a column, left and right together, in pixels; the style sheet has the parts.
constexpr int usual_padding = 2 * theme::grid;
constexpr int close_padding = theme::grid - 1;

// Of headings and of what changed.
QFont bold(QFont font) {
    font.setWeight(QFont::DemiBold);
    return font;
}

bool is_left_aligned(const QAbstractItemModel& model, int column) {
    const QVariant alignment = model.headerData(column, Qt::Horizontal, Qt::TextAlignmentRole);
    return (alignment.toInt() & Qt::AlignLeft) != 0;
}

// Words behind figures stand apart from them.
int lead(const QAbstractItemModel& model, int column) {
    const bool behind_figures =
        column > 0 && is_left_aligned(model, column) && !is_left_aligned(model, column - 1);
    return behind_figures ? theme::grid : 0;
}

// Draws what changed in bold and in the accent colour. A chosen row is strong only with the focus.
class Delegate : public QStyledItemDelegate {
public:
    Delegate(QTableView* parent, const bool& close, const bool& brief)
        : QStyledItemDelegate(parent), close_(close), brief_(brief) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& cell,
               const QModelIndex& index) const override {
        const theme::Colors& colors = theme::colors();
        const bool chosen = cell.state.testFlag(QStyle::State_Selected);
        const bool strong = chosen && cell.widget->hasFocus();
        const bool changed = index.data(changed_role).toBool();
        if (chosen) {
            painter->fillRect(cell.rect, strong ? colors.filled : colors.selected);
        }
        QFont font = changed ? bold(cell.font) : cell.font;
        font.setItalic(index.data(supposed_role).toBool());
        painter->setFont(font);
        painter->setPen(strong ? colors.on_filled : changed ? colors.accent : colors.text);
        const int right = close_ ? theme::grid / 2 : theme::grid;
        const int left = (close_ ? close_padding : usual_padding) - right;
        const QRect room =
            cell.rect.adjusted(left + lead(*index.model(), index.column()), 0, -right, 0);
        const bool sentence =
            static_cast<const QTableView*>(parent())->columnSpan(index.row(), index.column()) > 1;
        painter->drawText(room,
                          Qt::AlignVCenter | (sentence ? Qt::AlignLeft | Qt::TextWordWrap
                                                       : index.data(Qt::TextAlignmentRole).toInt()),
                          index.data(brief_ ? int{brief_role} : int{Qt::DisplayRole}).toString());
    }

private:
    const bool& close_;
    const bool& brief_;
};

// Width of the longest text among the first rows, where every month occurs, and some spread over the
// column; one more digit for amounts not looked at.
int contents_width(const QTableView& grid, int column, const QFont& font, int role) {
    constexpr int looked_at = 24;
    const QAbstractItemModel& model = *grid.model();
    const int rows = model.rowCount();
    const int step = std::max(1, rows / looked_at);
    QString longest;
    bool changed = false;
    for (int row = 0; row < rows; row += row < looked_at ? 1 : step) {
        const QModelIndex cell = model.index(row, column);
        if (grid.columnSpan(row, column) > 1) {
            continue;
        }
        const QString text = cell.data(role).toString();
        longest = text.size() > longest.size() ? text : longest;
        changed = changed || cell.data(changed_role).toBool();
    }
    if (step > 1 && (longest.contains(u'.') || longest.contains(u'$'))) {
        longest += u'0';
    }
    return QFontMetrics(changed ? bold(font) : font).horizontalAdvance(longest) + 1;
}

// A heading wraps at its blanks, so its longest word decides. A word with more letters than these may
// be shortened.
int heading_width(const QString& heading, const QFontMetrics& metrics, qsizetype letters) {
    int widest = 0;
    for (const QString& word : heading.split(u' ')) {
        const bool whole = word.size() <= letters;
        const QString shown = whole ? word : word.left(letters / 2) + u'\u2026';
        widest = std::max(widest, metrics.horizontalAdvance(shown));
    }
    return widest + 1;
}

// Shortens words that are wider than their column. The model has them whole, for the pointer and for
// screen readers.
class Header : public QHeaderView {
public:
    Header() : QHeaderView(Qt::Horizontal) {}

protected:
    void paintSection(QPainter* painter, const QRect& section, int column) const override {
        const QRect moved = section.adjusted(lead(*model(), column), 0, 0, 0);
        painter->fillRect(section, theme::colors().border);
        painter->fillRect(section.adjusted(0, 0, 0, -1), theme::colors().quiet);
        QHeaderView::paintSection(painter, moved, column);
    }

    void initStyleOptionForIndex(QStyleOptionHeader* option, int column) const override {
        QHeaderView::initStyleOptionForIndex(option, column);
        QStringList words = option->text.split(u' ');
        for (QString& word : words) {
            word = QFontMetrics(bold(font()))
                       .elidedText(word, Qt::ElideRight, sectionSize(column) - close_padding);
        }
        option->text = words.join(u' ');
    }
};

}  // namespace

Grid::Grid(const char* name, const QString& accessible_name) {
    setObjectName(QString::fromLatin1(name));
    setAccessibleName(accessible_name);
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setItemDelegate(new Delegate(this, close_, brief_));
    setAlternatingRowColors(true);
    setShowGrid(false);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setHorizontalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(row_height());
    setHorizontalHeader(new Header);
    horizontalHeader()->setMinimumSectionSize(1);
}

void Grid::setModel(QAbstractItemModel* model) {
    QTableView::setModel(model);
    connect(model, &QAbstractItemModel::modelReset, this, [this] {
        clearSpans();
        measure_columns();
    });
    measure_columns();
}

void Grid::resizeEvent(QResizeEvent* event) {
    const QRect current = visualRect(currentIndex());
    const bool in_view = QRect(QPoint(), event->oldSize()).contains(current);
    QTableView::resizeEvent(event);
    spread_columns();
    if (event->size().width() != event->oldSize().width()) {
        fit_height();
    }
    fit_rows();
    if (in_view) {  // stays there
        scrollTo(currentIndex());
    }
}

int Grid::row_height() const {
    return fontMetrics().height() + theme::grid;
}

// Of a row that shows a sentence over joined cells as much as its lines need.
int Grid::height_of(int row) const {
    int height = fontMetrics().height();
    for (int column = 0; column < model()->columnCount(); ++column) {
        if (columnSpan(row, column) > 1) {
            const int left = horizontalHeader()->sectionPosition(column);
            const QRect room(0, 0, horizontalHeader()->length() - left - 2 * theme::grid, 10 * height);
            const QString text = model()->index(row, column).data().toString();
            height = fontMetrics().boundingRect(room, Qt::TextWordWrap, text).height();
            break;
        }
    }
    return height + theme::grid;
}

// Rows share the height that would show a piece of one more, so that none is cut in half.
void Grid::fit_rows() {
    if (shows_all_rows_) {
        for (int row = 0; row < model()->rowCount(); ++row) {
            verticalHeader()->resizeSection(row, height_of(row));
        }
        return;
    }
    const int rows = viewport()->height() / row_height();
    const bool all_fit = model() == nullptr || model()->rowCount() <= rows;
    verticalHeader()->setDefaultSectionSize(all_fit || rows == 0 ? row_height()
                                                                 : viewport()->height() / rows);
}

void Grid::join_cells(int row, int first_column) {
    setSpan(row, first_column, 1, model()->columnCount() - first_column);
    measure_columns();
}

void Grid::show_all_rows() {
    shows_all_rows_ = true;
    fit_height();
    fit_rows();
}

void Grid::show_at_least(int rows) {
    least_rows_ = rows;
}

void Grid::fit_height() {
    const QFontMetrics metrics(bold(font()));
    int lines = metrics.height();
    for (int column = 0; column < model()->columnCount(); ++column) {
        const int width =
            columnWidth(column) - (close_ ? close_padding : usual_padding) - lead(*model(), column);
        const QRect room(0, 0, width, 10 * metrics.height());
        const QString heading = model()->headerData(column, Qt::Horizontal).toString();
        lines = std::max(lines, metrics.boundingRect(room, Qt::TextWordWrap, heading).height());
    }
    horizontalHeader()->setFixedHeight(lines + theme::grid / 2);
    int rows = least_rows_ * row_height();
    if (shows_all_rows_) {
        rows = model()->rowCount() == 0 ? row_height() : 0;
        for (int row = 0; row < model()->rowCount(); ++row) {
            rows += height_of(row);
        }
    }
    const bool scrolls = horizontalHeader()->length() > width() - 2 * frameWidth();
    const int height = horizontalHeader()->height() + rows + 2 * frameWidth() +
                       (scrolls ? horizontalScrollBar()->sizeHint().height() : 0);
    setMinimumHeight(height);
    setMaximumHeight(shows_all_rows_ ? height : QWIDGETSIZE_MAX);
}

// Whole rows are chosen, so the ends of a row are no place to go to.
QModelIndex Grid::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    const bool to_an_end = action == MoveHome || action == MoveEnd;
    return QTableView::moveCursor(action, to_an_end ? modifiers | Qt::ControlModifier : modifiers);
}

// The view's own search looks in the column that was clicked last, and forgets too soon for those who
// look for each key.
void Grid::keyboardSearch(const QString& typed) {
    constexpr int forgotten_after = 2000;  // ms
    const bool goes_on =
        since_typed_.isValid() && !since_typed_.hasExpired(forgotten_after) && found_ == currentIndex();
    sought_ = goes_on ? sought_ + typed : typed;
    since_typed_.start();
    const auto found = [this] {
        return model()->match(model()->index(0, search_column_), Qt::DisplayRole, sought_, 1,
                              Qt::MatchStartsWith);
    };
    QModelIndexList rows = found();
    if (rows.isEmpty() && goes_on) {  // another entry begins
        sought_ = typed;
        rows = found();
    }
    if (!rows.isEmpty()) {
        setCurrentIndex(rows.front());
        scrollTo(rows.front(), PositionAtTop);
    }
    found_ = currentIndex();
}

// The line is painted here, once a row, over whatever the cells have as their background.
void Grid::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    QPainter painter(viewport());
    const int rows = model() == nullptr ? 0 : model()->rowCount();
    const int width = horizontalHeader()->length();
    for (int row = std::max(0, rowAt(0)); row < rows; ++row) {
        const int top = rowViewportPosition(row);
        if (top > event->rect().bottom()) {
            break;
        }
        const QModelIndex first = model()->index(row, 0);
        const bool chosen = selectionModel()->isSelected(first);
        if (chosen && !hasFocus()) {
            painter.fillRect(0, top, theme::grid / 2, rowHeight(row), theme::colors().accent);
        }
        if (first.data(new_group_role).toBool()) {
            painter.fillRect(
                0, top, width, 1,
                chosen && hasFocus() ? theme::colors().on_filled : theme::colors().outline);
        }
    }
    // What whole pixels leave over shows no piece of the row below.
    const int height = verticalHeader()->defaultSectionSize();
    const int room = viewport()->height();
    if (rows > 0 && rowViewportPosition(rows - 1) + height > room) {
        painter.fillRect(0, room - room % height, viewport()->width(), room % height, palette().base());
    }
}

void Grid::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        copy();
    } else if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
        // The toolkit knows the Menu key only.
        show_menu(viewport()->mapToGlobal(visualRect(currentIndex()).center()));
    } else if (event->key() == Qt::Key_Home || event->key() == Qt::Key_End) {
        // With Ctrl the view would go there without choosing the row.
        QKeyEvent chooses(event->type(), event->key(), event->modifiers() & ~Qt::ControlModifier);
        QTableView::keyPressEvent(&chooses);
    } else {
        QTableView::keyPressEvent(event);
    }
}

void Grid::contextMenuEvent(QContextMenuEvent* event) {
    show_menu(event->globalPos());
}

void Grid::show_menu(const QPoint& place) {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction* copies = menu->addAction(u"&Copy"_s, QKeySequence::Copy, this, [this] { copy(); });
    copies->setEnabled(!rows_to_copy().isEmpty());
    menu->addAction(u"Select &All"_s, QKeySequence::SelectAll, this, [this] { selectAll(); });
    menu->popup(place);
}

// In the order of the grid, whatever the order in which they were chosen.
QList<int> Grid::rows_to_copy() const {
    QList<int> rows;
    for (const QModelIndex& row : selectionModel()->selectedRows()) {
        rows << row.row();
    }
    if (rows.isEmpty() && currentIndex().isValid()) {
        rows << currentIndex().row();
    }
    std::ranges::sort(rows);
    return rows;
}

void Grid::copy() const {
    const QList<int> rows = rows_to_copy();
    if (rows.isEmpty()) {
        return;
    }
    auto* texts = new QMimeData;
    texts->setText(tab_separated(*model(), rows));
    texts->setHtml(html_table(*model(), rows));
    QApplication::clipboard()->setMimeData(texts);
}

void Grid::measure_columns() {
    constexpr qsizetype all = 100;
    constexpr qsizetype few = 6;  // as "Number" has
    const QFontMetrics heading_metrics(bold(font()));
    widths_.clear();
    for (int column = 0; column < model()->columnCount(); ++column) {
        const QString heading = model()->headerData(column, Qt::Horizontal).toString();
        widths_.push_back({heading_width(heading, heading_metrics, all),
                           heading_width(heading, heading_metrics, few),
                           contents_width(*this, column, font(), Qt::DisplayRole),
                           contents_width(*this, column, font(), brief_role), lead(*model(), column),
                           !is_left_aligned(*model(), column) &&
                               (column == 0 || !is_left_aligned(*model(), column - 1))});
    }
    spread_columns();
    fit_height();
    fit_rows();
}

// Shares out the room that is left. Where there is none, the columns move closer; where that does not
// do, texts are brief, then headings are shortened, as few as will do, and only then the grid scrolls
// sideways.
void Grid::spread_columns() {
    if (widths_.empty()) {
        return;
    }
    const auto texts = [this] {
        int sum = 0;
        for (const ColumnWidth& width : widths_) {
            sum += width.lead + std::max(width.heading, brief_ ? width.brief_contents : width.contents);
        }
        return sum;
    };
    brief_ = false;
    const int columns = static_cast<int>(widths_.size());
    move_closer(texts() + columns * usual_padding > viewport()->width());
    const int padding = close_ ? close_padding : usual_padding;
    const int room = viewport()->width() - columns * padding;
    brief_ = texts() > room;
    const int needed = texts();
    // Figures share it: words and what stands behind them stay together.
    const int shares =
        std::max(1, static_cast<int>(std::ranges::count(widths_, true, &ColumnWidth::grows)));
    const int spare = std::max(0, room - needed);
    int shared = 0;
    int missing = std::max(0, needed - room);
    for (int column = 0; column < columns; ++column) {
        const ColumnWidth& width = widths_[static_cast<std::size_t>(column)];
        const int contents = brief_ ? width.brief_contents : width.contents;
        const int whole = std::max(width.heading, contents);
        const int less = std::min(missing, whole - std::max(width.least_heading, contents));
        missing -= less;
        const int before = shared;
        shared += width.grows ? 1 : 0;
        const int share = spare * shared / shares - spare * before / shares;
        setColumnWidth(column, width.lead + whole - less + padding + share);
    }
    if (kept_) {
        const int place = missing > 0 ? kept_->after + 1 : kept_->column;
        horizontalHeader()->moveSection(horizontalHeader()->visualIndex(kept_->column), place);
    }
}

void Grid::move_closer(bool close) {
    if (close == close_) {
        return;
    }
    close_ = close;
    setProperty("close", close);
    for (QWidget* part : {static_cast<QWidget*>(this), static_cast<QWidget*>(horizontalHeader())}) {
        part->style()->unpolish(part);
        part->style()->polish(part);
    }
}

}  // namespace kelvar
