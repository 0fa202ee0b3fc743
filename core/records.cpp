#include "core/records.h"

#include <SQLiteCpp/Backup.h>
#include <SQLiteCpp/SQLiteCpp.h>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <sqlite3.h>

#include <algorithm>
#include <utility>

#include "core/criterion.h"
#include "core/names.h"
#include "core/numbers.h"
#include "core/operating_system.h"

namespace kelvar {

namespace {

constexpr int busy_timeout_ms = 5000;

FieldValue read_column(const SQLite::Column& column) {
    switch (column.getType()) {
        case SQLITE_INTEGER:
            return std::int64_t{column.getInt64()};
        case SQLITE_FLOAT:
            return column.getDouble();
        case SQLITE_NULL:
            return std::monostate{};
        default:
            return column.getString();
    }
}

void bind(SQLite::Statement& statement, int index, const FieldValue& value) {
    if (const auto* whole = std::get_if<std::int64_t>(&value)) {
        statement.bind(index, *whole);
    } else if (const auto* number = std::get_if<double>(&value)) {
        statement.bind(index, *number);
    } else if (const auto* text = std::get_if<std::string>(&value)) {
        statement.bind(index, *text);
    } else {
        statement.bind(index);
    }
}

void bind_all(SQLite::Statement& statement, const std::vector<FieldValue>& values) {
    statement.tryReset();  // reset would report the error of a failed earlier step once more
    for (std::size_t i = 0; i < values.size(); ++i) {
        bind(statement, static_cast<int>(i) + 1, values[i]);
    }
}

// Without locks between threads: the program has one.
std::unique_ptr<SQLite::Database> open_in_place(const std::string& file) {
    return std::make_unique<SQLite::Database>(file, SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX,
                                              busy_timeout_ms);
}

std::unique_ptr<SQLite::Database> open_copy(const std::string& file) {
    SQLite::Database original(file, SQLite::OPEN_READONLY | SQLite::OPEN_NOMUTEX, busy_timeout_ms);
    auto copy =
        std::make_unique<SQLite::Database>(":memory:", SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX);
    if (const int code = SQLite::Backup(*copy, original).executeStep(); code != SQLITE_DONE) {
        throw SQLite::Exception(sqlite3_errstr(code), code);
    }
    return copy;
}

}  // namespace

DatabaseError::DatabaseError(const std::filesystem::path& file, const std::string& what_failed)
    : std::runtime_error(fmt::format("{}: {}", file.string(), what_failed)) {}

double as_number(const FieldValue& value) {
    if (const auto* whole = std::get_if<std::int64_t>(&value)) {
        return static_cast<double>(*whole);
    }
    if (const auto* number = std::get_if<double>(&value)) {
        return *number;
    }
    const auto* text = std::get_if<std::string>(&value);
    return text == nullptr ? 0.0 : read_number(*text);
}

std::string as_text(const FieldValue& value) {
    if (const auto* whole = std::get_if<std::int64_t>(&value)) {
        return fmt::format("{}", *whole);
    }
    if (const auto* number = std::get_if<double>(&value)) {
        return number_text(*number);
    }
    const auto* text = std::get_if<std::string>(&value);
    return text == nullptr ? std::string{} : *text;
}

// Runs a database action and turns the engine's error into ours, which names the file.
template <class Action>
auto Database::guarded(Action action) const {
    try {
        return action();
    } catch (const SQLite::Exception& error) {
        throw DatabaseError(file_, error.what());
    }
}

Recordset::Recordset(Database& database, std::string table, std::vector<std::string> fields, Type type)
    : database_(database), table_(std::move(table)), fields_(std::move(fields)), type_(type) {
    load();
    if (type_ == Type::table) {
        std::vector<std::string> assignments;
        assignments.reserve(fields_.size());
        for (const std::string& field : fields_) {
            assignments.push_back(fmt::format("[{}] = ?", field));
        }
        const std::vector<std::string> marks(fields_.size(), "?");
        SQLite::Database& connection = *database_.connection_;
        database_.guarded([&] {
            insert_ = std::make_unique<SQLite::Statement>(
                connection, fmt::format("INSERT INTO {} ([{}]) VALUES ({})", table_,
                                        fmt::join(fields_, "], ["), fmt::join(marks, ", ")));
            update_ = std::make_unique<SQLite::Statement>(
                connection,
                fmt::format("UPDATE {} SET {} WHERE rowid = ?", table_, fmt::join(assignments, ", ")));
            delete_ = std::make_unique<SQLite::Statement>(
                connection, fmt::format("DELETE FROM {} WHERE rowid = ?", table_));
        });
    }
}

Recordset::~Recordset() = default;

void Recordset::load() {
    std::deque<Row> rows;
    database_.guarded([&] {
        SQLite::Statement select(*database_.connection_,
                                 fmt::format("SELECT rowid, [{}] FROM {} ORDER BY rowid",
                                             fmt::join(fields_, "], ["), table_));
        while (select.executeStep()) {
            Row row;
            row.id = select.getColumn(0).getInt64();
            row.fields.reserve(fields_.size());
            for (int i = 1; i <= static_cast<int>(fields_.size()); ++i) {
                row.fields.push_back(read_column(select.getColumn(i)));
            }
            rows.push_back(std::move(row));
        }
    });
    take_rows(std::move(rows));
}

void Recordset::take_rows(std::deque<Row> rows) {
    rows_ = std::move(rows);
    edited_.reset();
    current_deleted_ = false;
    position_ = 0;
}

void Recordset::MoveFirst() {
    current_deleted_ = false;
    position_ = 0;
}

void Recordset::MoveLast() {
    current_deleted_ = false;
    position_ = std::max(std::ssize(rows_) - 1, std::ptrdiff_t{0});
}

void Recordset::MoveNext() {
    if (std::exchange(current_deleted_, false)) {
        return;
    }
    position_ = std::min(position_ + 1, std::ssize(rows_));
}

bool Recordset::Eof() const {
    return position_ >= std::ssize(rows_);
}

void Recordset::FindFirst(std::string_view criterion) {
    struct ColumnValue {
        std::size_t column;
        double value;
    };
    std::vector<ColumnValue> wanted;
    try {
        for (const Condition& condition : parse_criterion(criterion)) {
            wanted.push_back({column(condition.field), condition.value});
        }
    } catch (const std::invalid_argument& error) {
        throw DatabaseError(database_.file_, error.what());
    }
    const auto found = std::ranges::find_if(rows_, [&](const Row& row) {
        return std::ranges::all_of(
            wanted, [&](const ColumnValue& w) { return as_number(row.fields[w.column]) == w.value; });
    });
    no_match_ = found == rows_.end();
    if (!no_match_) {
        current_deleted_ = false;
        position_ = found - rows_.begin();
    }
}

double Recordset::number(std::string_view field) const {
    return as_number(current().fields[column(field)]);
}

std::string Recordset::text(std::string_view field) const {
    return as_text(current().fields[column(field)]);
}

void Recordset::AddNew() {
    require_table();
    edited_ = Row{0, std::vector<FieldValue>(fields_.size())};
}

void Recordset::Edit() {
    require_table();
    edited_ = current();
    edited_at_ = position_;
}

void Recordset::set(std::string_view field, FieldValue value) {
    if (!edited_) {
        throw DatabaseError(database_.file_, fmt::format("{}: set without AddNew or Edit", table_));
    }
    edited_->fields[column(field)] = std::move(value);
}

void Recordset::Update() {
    if (!edited_) {
        throw DatabaseError(database_.file_, fmt::format("{}: Update without AddNew or Edit", table_));
    }
    Row row = *std::exchange(edited_, std::nullopt);
    const int written = database_.guarded([&] {
        SQLite::Statement& statement = row.id == 0 ? *insert_ : *update_;
        bind_all(statement, row.fields);
        if (row.id != 0) {
            statement.bind(static_cast<int>(fields_.size()) + 1, row.id);
        }
        return statement.exec();
    });
    if (written != 1) {
        throw DatabaseError(database_.file_,
                            fmt::format("{}: {} rows were written instead of one", table_, written));
    }
    if (row.id != 0) {
        rows_[static_cast<std::size_t>(edited_at_)] = std::move(row);
        return;
    }
    row.id = database_.connection_->getLastInsertRowid();
    rows_.push_back(std::move(row));
    current_deleted_ = false;
    position_ = std::ssize(rows_) - 1;
}

void Recordset::Delete() {
    require_table();
    edited_.reset();
    const std::int64_t id = current().id;
    database_.guarded([&] {
        delete_->tryReset();
        delete_->bind(1, id);
        delete_->exec();
    });
    rows_.erase(rows_.begin() + position_);
    current_deleted_ = true;
}

void Recordset::DeleteAll() {
    require_table();
    database_.guarded([&] { database_.connection_->exec("DELETE FROM " + table_); });
    take_rows({});
}

std::size_t Recordset::column(std::string_view field) const {
    const auto found =
        std::ranges::find_if(fields_, [&](const std::string& name) { return same_name(name, field); });
    if (found == fields_.end()) {
        throw DatabaseError(database_.file_, fmt::format("{} has no field {}", table_, field));
    }
    return static_cast<std::size_t>(found - fields_.begin());
}

const FieldValue& Recordset::cell(std::size_t row, std::size_t column) const {
    return rows_.at(row).fields.at(column);
}

const Recordset::Row& Recordset::current() const {
    if (position_ < 0 || Eof() || current_deleted_) {
        throw DatabaseError(database_.file_, fmt::format("{}: no current record", table_));
    }
    return rows_[static_cast<std::size_t>(position_)];
}

void Recordset::require_table() const {
    if (type_ != Type::table) {
        throw DatabaseError(database_.file_, fmt::format("{} is a read-only copy", table_));
    }
}

Database::Database(const std::filesystem::path& file) : Database(file, open_in_place) {
    require_writable();
}

std::unique_ptr<Database> Database::copy_of(const std::filesystem::path& file) {
    return std::unique_ptr<Database>(new Database(file, open_copy));
}

Database::Database(const std::filesystem::path& file,
                   std::unique_ptr<SQLite::Database> (*open)(const std::string&))
    : file_(file) {
    connection_ = guarded([&] { return open(file_.string()); });
    guarded([&] { connection_->exec("PRAGMA synchronous = FULL"); });
    known_version_ = data_version();
    using enum Recordset::Type;
    lifexp_ = open_recordset("lifexp", {"age", "multiple"}, snapshot);
    joinlife_ = open_recordset("joinlife", {"PartAge", "BeneAge", "LifeAge"}, snapshot);
    rate_ = open_recordset("rate", {"rateid", "rate", "ratemark"}, snapshot);
    schedule_ = open_recordset(
        "schedule",
        {"number", "remaining", "startbalance", "payment", "remainbalance", "Month", "Year"}, table);
    distrib_ = open_recordset(
        "distrib",
        {"dtitle", "dsubtitle", "curvalue", "startvalue", "frstdate", "scnddate", "scndvalue",
         "partial", "payments", "fixamount", "paylength", "totalvalue", "rate", "fee"},
        table);
    require_heading_row();
}

Database::~Database() = default;

std::unique_ptr<Recordset> Database::open_recordset(const char* table, std::vector<std::string> fields,
                                                    Recordset::Type type) {
    return std::unique_ptr<Recordset>(new Recordset(*this, table, std::move(fields), type));
}

void Database::require_heading_row() const {
    if (distrib_->RecordCount() != 1) {
        throw DatabaseError(
            file_, fmt::format("table distrib must hold one row, not {}", distrib_->RecordCount()));
    }
}

// Found out at start-up rather than after the participant has entered everything. An administrator
// may write to a file that is marked read-only; the mark still counts.
void Database::require_writable() {
    using std::filesystem::perms;
    const perms any_write = perms::owner_write | perms::group_write | perms::others_write;
    const bool marked = (std::filesystem::status(file_).permissions() & any_write) == perms::none;
    if (marked || sqlite3_db_readonly(connection_->getHandle(), "main") == 1) {
        throw DatabaseError(file_, "the file is read-only");
    }
    // The journal of every change stands beside the file.
    if (!may_write_into(std::filesystem::absolute(file_).parent_path())) {
        throw DatabaseError(file_, "the folder is read-only");
    }
    const Transaction not_locked_by_others(*this);
}

std::int64_t Database::data_version() const {
    return guarded([&] { return connection_->execAndGet("PRAGMA data_version").getInt64(); });
}

bool Database::changed_by_others() const {
    return data_version() != known_version_;
}

void Database::empty_work_tables() {
    Transaction transaction(*this);
    schedule_->DeleteAll();
    distrib_->MoveFirst();
    distrib_->Edit();
    for (const std::string& field : distrib_->fields_) {
        distrib_->set(field, {});
    }
    distrib_->Update();
    transaction.commit();
}

Database::Transaction::Transaction(Database& database) : database_(database) {
    database_.guarded([&] { database_.connection_->exec("BEGIN IMMEDIATE"); });
    try {
        read_what_others_wrote();
    } catch (const std::exception&) {
        roll_back();
        throw;
    }
}

Database::Transaction::~Transaction() {
    if (open_) {
        roll_back();
    }
}

void Database::Transaction::read_what_others_wrote() {
    const std::int64_t version = database_.data_version();
    if (version == database_.known_version_) {
        return;
    }
    Recordset& schedule = *database_.schedule_;
    Recordset& distrib = *database_.distrib_;
    before_ = Before{database_.known_version_, schedule.rows_, distrib.rows_};
    database_.known_version_ = version;
    schedule.load();
    distrib.load();
    database_.require_heading_row();
}

void Database::Transaction::roll_back() {
    try {
        // The engine has already rolled back after some errors, such as a full disk.
        if (sqlite3_get_autocommit(database_.connection_->getHandle()) == 0) {
            database_.connection_->exec("ROLLBACK");
        }
        if (before_) {
            // What is on the screen is still what was read or written here.
            database_.schedule_->take_rows(std::move(before_->schedule));
            database_.distrib_->take_rows(std::move(before_->distrib));
            database_.known_version_ = before_->version;
            return;
        }
        database_.schedule_->load();
        database_.distrib_->load();
    } catch (const std::exception&) {
        // Nothing more can be done here; the file itself restores the old state when it is next
        // opened, and the error that led here is on its way to the user.
    }
}

void Database::Transaction::commit() {
    database_.guarded([&] { database_.connection_->exec("COMMIT"); });
    open_ = false;
}

}  // namespace kelvar
