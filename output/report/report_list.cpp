#include "output/report/report_list.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextTable>
#include <array>
#include <map>
#include <set>

#include "output/report/report_rows.h"

namespace kelvar {

namespace {

constexpr double endless = 1e6;  // pixels: room for any line

bool plain(const QTextTableFormat& format) {
    return format.cellSpacing() == 0.0 && format.border() == 0.0 && format.padding() == 0.0 &&
           !format.borderCollapse() && !format.hasProperty(QTextFormat::BackgroundBrush);
}

bool plain(const QTextTableCellFormat& format) {
    const auto line = [](QTextFrameFormat::BorderStyle style, double width) {
        return width == 0.0 || style == QTextFrameFormat::BorderStyle_Solid;
    };
    const bool beside = format.leftBorder() > 0.0 || format.rightBorder() > 0.0;
    const bool lines = line(format.topBorderStyle(), format.topBorder()) &&
                       line(format.bottomBorderStyle(), format.bottomBorder());
    return format.tableCellRowSpan() == 1 && !beside && lines;
}

bool plain(const QTextCharFormat& format, const QTextTableCellFormat& cell) {
    return !format.isImageFormat() && !format.hasProperty(QTextFormat::FontSizeAdjustment) &&
           format.background() == cell.background() &&
           format.verticalAlignment() == QTextCharFormat::AlignNormal;
}

bool one_line(const QString& text) {
    return !text.contains(QChar::ObjectReplacementCharacter) && !text.contains(QChar::LineSeparator) &&
           !text.contains(u'\t');
}

}  // namespace

// Goes through the blocks of a table, one for each cell.
class ReportList::Reader {
public:
    Reader(const QTextTable& table, QPaintDevice* device)
        : table_(table), device_(device), block_(table.firstCursorPosition().block()) {}

    bool read(ReportList& list) {
        if (!plain(table_.format()) || !table_.childFrames().isEmpty()) {
            return false;
        }
        list.heading_rows_ = table_.format().headerRowCount();
        for (int row = 0; row < table_.rows(); ++row) {
            if (!read_row(list)) {
                return false;
            }
        }
        return block_.position() == table_.lastPosition() + 1;
    }

    // Puts all rows in the place of one of each kind.
    void repeat(ReportList& list, const ReportRows& rows) const {
        const auto heading = list.rows_.begin() + list.heading_rows_;
        const std::vector<Row> kinds(heading, list.rows_.end());
        list.rows_.erase(heading, list.rows_.end());
        list.texts_.resize(kinds.front().first_text);
        for (const ReportRows::Row& row : rows.rows()) {
            const int kind = kinds[static_cast<std::size_t>(row.kind)].kind;
            list.rows_.push_back({kind, list.texts_.size()});
            const std::vector<Cell>& cells = list.cells(list.rows_.back());
            for (std::size_t cell = 0; cell < cells.size(); ++cell) {
                list.texts_.push_back(text_of(cells[cell], rows.text(row, cell)));
            }
        }
    }

private:
    bool read_row(ReportList& list) {
        const auto headings = static_cast<std::size_t>(list.heading_rows_);
        const std::size_t first = list.texts_.size();
        std::vector<int> looks;
        for (int column = 0; column < table_.columns();) {
            const std::optional<int> look = look_of_cell(list.rows_.size() < headings);
            if (!look) {
                return false;
            }
            looks.push_back(*look);
            const Cell& cell = cells_[static_cast<std::size_t>(*look)];
            column += cell.columns;
            list.texts_.push_back(text_of(cell, block_.text()));
            block_ = block_.next();
        }
        const auto [kind, is_new] = kinds_.emplace(looks, static_cast<int>(list.kinds_.size()));
        if (is_new) {
            std::vector<Cell>& cells = list.kinds_.emplace_back();
            for (const int look : looks) {
                cells.push_back(cells_[static_cast<std::size_t>(look)]);
            }
        }
        list.rows_.push_back({kind->second, first});
        return true;
    }

    // Which of `cells_` the cell of the block looks like.
    std::optional<int> look_of_cell(bool in_heading) {
        const QTextBlock::iterator text = block_.begin();
        const bool has_text = !text.atEnd();
        const int text_format = has_text ? text.fragment().charFormatIndex() : block_.charFormatIndex();
        const std::array formats{block_.charFormatIndex(), block_.blockFormatIndex(), text_format};
        const bool one_look = !has_text || text.fragment().length() + 1 == block_.length();
        if (!in_heading && (!one_look || !one_line(block_.text()))) {
            return {};
        }
        if (const auto known = looks_.find(formats); known != looks_.end()) {
            return known->second;
        }
        const QTextTableCellFormat cell = block_.charFormat().toTableCellFormat();
        const QTextCharFormat letters = has_text ? text.fragment().charFormat() : block_.charFormat();
        if (!plain(cell) || !plain(letters, cell) || block_.textList() != nullptr) {
            return {};
        }
        cells_.push_back(cell_of(cell, letters));
        return looks_[formats] = static_cast<int>(cells_.size()) - 1;
    }

    Cell cell_of(const QTextTableCellFormat& cell, const QTextCharFormat& letters) const {
        const double padding = table_.format().cellPadding();
        const auto padded = [&](QTextFormat::Property side) {
            return cell.hasProperty(side) ? cell.doubleProperty(side) : padding;
        };
        return {.font = letters.font().resolve(table_.document()->defaultFont()),
                .text = letters.foreground().style() == Qt::NoBrush ? QBrush(Qt::black)
                                                                    : letters.foreground(),
                .alignment = block_.blockFormat().alignment() & Qt::AlignHorizontal_Mask,
                .background = cell.background(),
                .padding = {padded(QTextFormat::TableCellLeftPadding),
                            padded(QTextFormat::TableCellTopPadding),
                            padded(QTextFormat::TableCellRightPadding),
                            padded(QTextFormat::TableCellBottomPadding)},
                .top_border = cell.topBorder(),
                .bottom_border = cell.bottomBorder(),
                .top_line = cell.topBorderBrush(),
                .bottom_line = cell.bottomBorderBrush(),
                .columns = cell.tableCellColumnSpan()};
    }

    std::unique_ptr<QTextLayout> text_of(const Cell& cell, const QString& of) const {
        auto text = std::make_unique<QTextLayout>(of, cell.font, device_);
        text->setCacheEnabled(true);  // shaped once, measured and drawn
        text->beginLayout();
        text->createLine().setLineWidth(endless);
        text->endLayout();
        return text;
    }

    const QTextTable& table_;
    QPaintDevice* device_;
    QTextBlock block_;
    std::vector<Cell> cells_;
    std::map<std::array<int, 3>, int> looks_;
    std::map<std::vector<int>, int> kinds_;
};

std::optional<ReportList> ReportList::read(const QTextTable& table, const ReportRows* rows,
                                           QPaintDevice* device) {
    ReportList list;
    Reader reader(table, device);
    if (!reader.read(list)) {
        return {};
    }
    if (rows != nullptr) {
        reader.repeat(list, *rows);
    }
    return list;
}

std::vector<int> ReportList::typical_rows() const {
    std::map<std::pair<int, std::size_t>, std::pair<double, int>> widest;  // of a kind and a cell
    for (int row = 0; row < static_cast<int>(rows_.size()); ++row) {
        const Row& of = rows_[static_cast<std::size_t>(row)];
        for (std::size_t cell = 0; cell < cells(of).size(); ++cell) {
            const double width = text(of, cell).lineAt(0).naturalTextWidth();
            auto [known, is_first] = widest.try_emplace({of.kind, cell}, width, row);
            if (!is_first && width > known->second.first) {
                known->second = {width, row};
            }
        }
    }
    std::set<int> typical{heading_rows_, static_cast<int>(rows_.size()) - 1};
    for (int row = 0; row < heading_rows_; ++row) {
        typical.insert(row);
    }
    for (const auto& [place, row] : widest) {
        typical.insert(row.second);
    }
    return {typical.begin(), typical.end()};
}

}  // namespace kelvar
