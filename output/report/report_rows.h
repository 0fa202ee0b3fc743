// The rows of a report's long table, as its HTML has them.
#pragma once

#include <QString>
#include <optional>
#include <vector>

class QTextDocument;
class QTextTable;

namespace kelvar {

// To import a row of HTML takes longer than to print it. Rows with the same markup look alike whatever
// their texts are, so that one of each kind is enough to import.
class ReportRows {
public:
    static constexpr int fewest = 3;  // a table with fewer is no list

    // Below the heading. `kind` counts from 0 in the order of the first of each kind.
    struct Row {
        int kind;
        std::size_t first_text;
    };

    // Those of the table with a heading that has most. Nothing when one of them holds more than plain
    // texts, or a style can depend on the row before.
    static std::optional<ReportRows> find(const QString& html);

    // All but the rows that are like an earlier one.
    QString shortened(const QString& html) const;
    // Whether a document that took over the shortened text has just the rows and texts that this
    // expects, and no other table is the longest. Learns from it whether blanks may break a line.
    bool belong_to(const QTextDocument& document);

    int table() const { return table_; }  // which one of the report
    const std::vector<Row>& rows() const { return rows_; }
    // As the toolkit would have imported it.
    QString text(const Row& row, std::size_t cell) const;

private:
    class Reader;
    struct Kind {
        qsizetype begin;  // of the first one, in the HTML
        qsizetype end;
        Row first;
        std::vector<bool> joined;  // of each cell: its blanks do not break
    };

    static const QTextTable* longest_of(const QTextDocument& document, int table, int rows);
    bool learn(const QTextTable& table, int row, Kind& kind) const;

    int table_ = -1;
    int heading_rows_ = 0;
    qsizetype begin_ = 0;
    qsizetype end_ = 0;
    std::vector<Kind> kinds_;
    std::vector<Row> rows_;
    std::vector<QString> texts_;
};

}  // namespace kelvar
