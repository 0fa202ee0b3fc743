// Looks at a database file, or damages it, past the record sets under test; and rows as texts.
#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <filesystem>
#include <string>
#include <vector>

#include "core/records.h"

namespace kelvar::test {

inline void run_sql(const std::filesystem::path& file, const std::string& sql) {
    SQLite::Database(file.string(), SQLite::OPEN_READWRITE).exec(sql);
}

// One text per row, its columns parted by a blank.
inline std::vector<std::string> sql_rows(const std::filesystem::path& file, const std::string& sql) {
    SQLite::Database connection(file.string(), SQLite::OPEN_READWRITE);
    SQLite::Statement select(connection, sql);
    std::vector<std::string> rows;
    while (select.executeStep()) {
        std::string row;
        for (int i = 0; i < select.getColumnCount(); ++i) {
            row.append(i > 0 ? " " : "").append(select.getColumn(i).getString());
        }
        rows.push_back(row);
    }
    return rows;
}

// The same of a record set.
inline std::vector<std::string> record_rows(const Recordset& records,
                                            const std::vector<std::string>& fields) {
    std::vector<std::string> rows(records.RecordCount());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        for (const std::string& field : fields) {
            rows[i]
                .append(rows[i].empty() ? "" : " ")
                .append(as_text(records.cell(i, records.column(field))));
        }
    }
    return rows;
}

}  // namespace kelvar::test
