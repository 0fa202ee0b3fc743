#include "statements/csv_reader.h"

#include <csv.h>
#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <new>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

namespace kelvar {

namespace {

constexpr std::size_t most_cells = 1'000;

// The parser knows no lines: it is given them piece by piece, to know in which one a record begins.
class Reader {
public:
    explicit Reader(const std::function<bool(const CsvRecord&)>& take) : take_(take) {
        if (csv_init(&parser_, 0) != 0) {
            throw std::bad_alloc();
        }
    }
    ~Reader() { csv_free(&parser_); }
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;
    Reader(Reader&&) = delete;
    Reader& operator=(Reader&&) = delete;

    // A piece of a line, with the character that ends it at its end only. False when enough was read.
    bool read(std::string_view piece) {
        if (!begun_) {
            record_.line = line_;
        }
        begun_ = begun_ || piece.find_first_not_of(" \t\r\n") != piece.npos;
        if (csv_parse(&parser_, piece.data(), piece.size(), add_cell, end_record, this) !=
            piece.size()) {
            throw std::bad_alloc();
        }
        const bool ends_return = after_return_ && piece == "\n";
        after_return_ = piece.back() == '\r';
        line_ += after_return_ || (piece.back() == '\n' && !ends_return) ? 1 : 0;
        return hand_on();
    }

    void end() {
        csv_set_opts(&parser_, CSV_STRICT | CSV_STRICT_FINI);
        if (csv_fini(&parser_, add_cell, end_record, this) != 0) {
            record_.unclosed = true;
            csv_set_opts(&parser_, 0);
            csv_fini(&parser_, add_cell, end_record, this);
        }
        hand_on();
    }

private:
    // The parser is written in C: no exception passes through it.
    static void add_cell(void* text, std::size_t size, void* reader) noexcept {
        std::vector<std::string>& cells = static_cast<Reader*>(reader)->record_.cells;
        if (cells.size() < most_cells) {
            cells.emplace_back(static_cast<const char*>(text), size);
        }
    }
    static void end_record(int, void* self) noexcept {
        auto* const reader = static_cast<Reader*>(self);
        reader->ended_ = std::exchange(reader->record_, {});
        reader->begun_ = false;
    }

    bool hand_on() {
        const auto ended = std::exchange(ended_, {});
        const auto is_blank = [](const std::string& cell) { return cell.empty(); };
        return !ended || (!ended->unclosed && std::ranges::all_of(ended->cells, is_blank)) ||
               take_(*ended);
    }

    const std::function<bool(const CsvRecord&)>& take_;
    csv_parser parser_{};
    CsvRecord record_;
    std::optional<CsvRecord> ended_;
    std::size_t line_ = 1;
    bool begun_ = false;  // a record, which goes on
    bool after_return_ = false;
};

}  // namespace

void read_csv(std::istream& table, const std::function<bool(const CsvRecord&)>& take) {
    Reader reader(take);
    std::string chunk(1U << 16U, '\0');
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    bool first = true;
    while (table.read(chunk.data(), std::ssize(chunk)), table.gcount() > 0) {
        std::string_view rest(chunk.data(), static_cast<std::size_t>(table.gcount()));
        rest.remove_prefix(std::exchange(first, false) && rest.starts_with(mark) ? mark.size() : 0);
        while (!rest.empty()) {
            const std::size_t end = std::min(rest.find_first_of("\r\n"), rest.size() - 1) + 1;
            if (!reader.read(rest.substr(0, end))) {
                return;
            }
            rest.remove_prefix(end);
        }
    }
    reader.end();
}

void read_csv(const std::filesystem::path& file, const std::function<bool(const CsvRecord&)>& take) {
    const auto refuse = [&](std::string_view why) {
        throw InputError(fmt::format("{} cannot be read: {}.", file.string(), why));
    };
    std::error_code none;
    if (std::filesystem::exists(file, none) && !std::filesystem::is_regular_file(file, none)) {
        refuse("it is no ordinary file");
    }
    errno = 0;
    std::ifstream table(file, std::ios::binary);
    if (table) {
        read_csv(table, take);
    }
    if (!table.is_open() || table.bad()) {
        refuse(std::generic_category().message(errno));
    }
}

}  // namespace kelvar
