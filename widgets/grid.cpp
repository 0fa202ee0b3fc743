#include "widgets/grid.h"

#include <QHeaderView>
#include <algorithm>
#include <numeric>

#include "widgets/theme.h"

namespace kelvar {

namespace {

// Width of the longest text among the first rows, where every month occurs, and some spread over the
// column; one more digit for the others.
int contents_width(const QAbstractItemModel& model, int column, const QFontMetrics& metrics) {
    constexpr int looked_at = 24;
    const int rows = model.rowCount();
    const int step = std::max(1, rows / looked_at);
    QString longest;
    for (int row = 0; row < rows; row += row < looked_at ? 1 : step) {
        const QString text = model.index(row, column).data().toString();
        longest = text.size() > longest.size() ? text : longest;
    }
    return metrics.horizontalAdvance(longest + QLatin1Char('0'));
}

// A heading wraps at its blanks, so its longest word decides.
int heading_width(const QString& heading, const QFontMetrics& metrics) {
    int widest = 0;
    for (const QString& word : heading.split(QLatin1Char(' '))) {
        widest = std::max(widest, metrics.horizontalAdvance(word));
    }
    return widest;
}

}  // namespace

Grid::Grid(const char* name, const QString& accessible_name) {
    setObjectName(QString::fromLatin1(name));
    setAccessibleName(accessible_name);
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setHorizontalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + theme::grid);
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setFixedHeight(2 * fontMetrics().height() + 2 * theme::grid);
    setMinimumHeight(horizontalHeader()->height() + 4 * verticalHeader()->defaultSectionSize());
}

void Grid::setModel(QAbstractItemModel* model) {
    QTableView::setModel(model);
    connect(model, &QAbstractItemModel::modelReset, this, [this] { measure_columns(); });
    measure_columns();
}

void Grid::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    spread_columns();
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
    const QModelIndexList rows = model()->match(model()->index(0, search_column_), Qt::DisplayRole,
                                                sought_, 1, Qt::MatchStartsWith);
    if (!rows.isEmpty()) {
        setCurrentIndex(rows.front());
        scrollTo(rows.front(), PositionAtTop);
    }
    found_ = currentIndex();
}

void Grid::measure_columns() {
    QFont bold = font();
    bold.setWeight(QFont::DemiBold);
    const QFontMetrics heading_metrics(bold);
    const int padding = 2 * theme::grid;
    needed_widths_.clear();
    for (int column = 0; column < model()->columnCount(); ++column) {
        const QString heading = model()->headerData(column, Qt::Horizontal).toString();
        needed_widths_.push_back(padding + std::max(heading_width(heading, heading_metrics),
                                                    contents_width(*model(), column, fontMetrics())));
    }
    spread_columns();
}

// Shares out the room that is left; where there is none, the grid scrolls sideways.
void Grid::spread_columns() {
    if (needed_widths_.empty()) {
        return;
    }
    const int needed = std::accumulate(needed_widths_.begin(), needed_widths_.end(), 0);
    const int columns = static_cast<int>(needed_widths_.size());
    const int spare = std::max(0, viewport()->width() - needed);
    for (int column = 0; column < columns; ++column) {
        const int share = spare * (column + 1) / columns - spare * column / columns;
        setColumnWidth(column, needed_widths_[static_cast<std::size_t>(column)] + share);
    }
}

}  // namespace kelvar
