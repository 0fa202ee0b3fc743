// Record sets over the program's SQLite file: the reference tables as read-only copies, the two work
// tables updated in place. All failures of the file and the engine throw DatabaseError, and so does
// what cannot be done: an unknown field, a text that is no criterion, reading or changing without a
// current row, set or Update without AddNew or Edit, changing a read-only copy.
#pragma once

#include <cstdint>
#include <deque>
#include <filesystem>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace SQLite {
class Database;
class Statement;
}  // namespace SQLite

namespace kelvar {

// What failed, and on which file.
class DatabaseError : public std::runtime_error {
public:
    DatabaseError(const std::filesystem::path& file, const std::string& what_failed);
};

// std::monostate is a field that was never written.
using FieldValue = std::variant<std::monostate, std::int64_t, double, std::string>;

double as_number(const FieldValue& value);     // 0 when empty; a text is read as a number
std::string as_text(const FieldValue& value);  // "" when empty; a number without binary noise

class Database;

// The rows of one table and a current row. A record set opens on its first row, or at Eof when it has
// none. Field names are compared without regard to case.
class Recordset {
public:
    enum class Type { table = 1, snapshot = 4 };

    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;
    Recordset(Recordset&&) = delete;
    Recordset& operator=(Recordset&&) = delete;
    ~Recordset();

    void MoveFirst();
    void MoveLast();
    void MoveNext();
    // Past the last row. (EOF itself is a macro of the C library.)
    bool Eof() const;
    std::size_t RecordCount() const { return rows_.size(); }

    // Moves to the first row that satisfies the criterion (see core/criterion.h); when none does, the
    // current row stays and NoMatch turns true.
    void FindFirst(std::string_view criterion);
    bool NoMatch() const { return no_match_; }

    // Fields of the current row.
    double number(std::string_view field) const;
    std::string text(std::string_view field) const;

    // Changes of a table. AddNew or Edit starts one, set fills in fields, Update writes it to the row
    // it was started on, and throws when it is no longer there; until then the row is unchanged. After
    // Update of a new row the current row is that row. Delete drops an unfinished change; the current
    // row is gone then, and MoveNext goes on to the one behind it.
    void AddNew();
    void Edit();
    void set(std::string_view field, FieldValue value);
    void Update();
    void Delete();
    // Drops all rows, also those that somebody else has added to the table since it was read.
    void DeleteAll();

    // Reading without moving, for views. Rows from 0 to RecordCount() - 1.
    std::size_t column(std::string_view field) const;
    const FieldValue& cell(std::size_t row, std::size_t column) const;

private:
    friend class Database;

    struct Row {
        std::int64_t id = 0;
        std::vector<FieldValue> fields;
    };

    Recordset(Database& database, std::string table, std::vector<std::string> fields, Type type);
    void load();
    void take_rows(std::deque<Row> rows);
    const Row& current() const;
    void require_table() const;

    Database& database_;
    std::string table_;
    std::vector<std::string> fields_;
    Type type_;
    std::deque<Row> rows_;
    std::ptrdiff_t position_ = 0;
    bool current_deleted_ = false;
    bool no_match_ = false;
    std::optional<Row> edited_;  // id 0 while it is a new row
    std::ptrdiff_t edited_at_ = 0;
    std::unique_ptr<SQLite::Statement> insert_;
    std::unique_ptr<SQLite::Statement> update_;
    std::unique_ptr<SQLite::Statement> delete_;
};

// The open file with its five record sets.
class Database {
public:
    // Opens an existing file for reading and writing. Throws when it is missing, no database, lacks a
    // table or a field, or `distrib` does not hold its one row; when it or its folder is read-only; and
    // when another program keeps it locked for 5 seconds.
    explicit Database(const std::filesystem::path& file);
    // The same of a copy of the file in memory: the file is only read, and may be read-only.
    static std::unique_ptr<Database> copy_of(const std::filesystem::path& file);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;
    Database(Database&&) = delete;
    Database& operator=(Database&&) = delete;

    const std::filesystem::path& file() const { return file_; }

    Recordset& lifexp() { return *lifexp_; }
    Recordset& joinlife() { return *joinlife_; }
    Recordset& rate() { return *rate_; }
    Recordset& schedule() { return *schedule_; }
    Recordset& distrib() { return *distrib_; }

    // Leaves no payment, and a heading row without contents, whole or not at all.
    void empty_work_tables();

    // True when somebody else has written the file since the work tables were read from it.
    bool changed_by_others() const;

    // Makes the changes of its lifetime one: commit keeps them all; leaving without it, also by an
    // exception, restores the rows of file and record sets; both work tables are then on their first
    // row. When somebody else has written the file, the work tables are read anew at its beginning.
    // Throws when `distrib` does not hold its one row then, and when somebody else keeps the file
    // locked for 5 seconds.
    class Transaction {
    public:
        explicit Transaction(Database& database);
        ~Transaction();
        Transaction(const Transaction&) = delete;
        Transaction& operator=(const Transaction&) = delete;
        Transaction(Transaction&&) = delete;
        Transaction& operator=(Transaction&&) = delete;
        void commit();

    private:
        // The work tables before they were read anew.
        struct Before {
            std::int64_t version;
            std::deque<Recordset::Row> schedule;
            std::deque<Recordset::Row> distrib;
        };

        void read_what_others_wrote();
        void roll_back();

        Database& database_;
        std::optional<Before> before_;
        bool open_ = true;
    };

private:
    friend class Recordset;

    Database(const std::filesystem::path& file,
             std::unique_ptr<SQLite::Database> (*open)(const std::string&));

    template <class Action>
    auto guarded(Action action) const;
    std::unique_ptr<Recordset> open_recordset(const char* table, std::vector<std::string> fields,
                                              Recordset::Type type);
    void require_heading_row() const;
    void require_writable();
    // Changes when another connection than this one has written the file.
    std::int64_t data_version() const;

    std::filesystem::path file_;
    std::unique_ptr<SQLite::Database> connection_;
    std::int64_t known_version_ = 0;
    std::unique_ptr<Recordset> lifexp_;
    std::unique_ptr<Recordset> joinlife_;
    std::unique_ptr<Recordset> rate_;
    std::unique_ptr<Recordset> schedule_;
    std::unique_ptr<Recordset> distrib_;
};

}  // namespace kelvar
