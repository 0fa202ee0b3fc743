#include "core/criterion.h"

#include <charconv>
#include <cmath>
#include <stdexcept>

#include "core/names.h"

namespace kelvar {

namespace {

class Reader {
public:
    explicit Reader(std::string_view text) : text_(text), rest_(text) {}

    bool at_end() {
        skip_blanks();
        return rest_.empty();
    }

    std::string name() {
        skip_blanks();
        std::size_t length = 0;
        while (length < rest_.size() && (is_letter(rest_[length]) || rest_[length] == '_')) {
            ++length;
        }
        if (length == 0) {
            fail();
        }
        std::string word{rest_.substr(0, length)};
        rest_.remove_prefix(length);
        return word;
    }

    void equals_sign() {
        skip_blanks();
        if (!rest_.starts_with('=')) {
            fail();
        }
        rest_.remove_prefix(1);
    }

    double number() {
        skip_blanks();
        double value = 0.0;
        const auto [stop, error] =
            std::from_chars(rest_.data(), rest_.data() + rest_.size(), value, std::chars_format::fixed);
        if (error != std::errc{} || !std::isfinite(value)) {
            fail();
        }
        rest_.remove_prefix(static_cast<std::size_t>(stop - rest_.data()));
        return value;
    }

    [[noreturn]] void fail() const {
        throw std::invalid_argument("not a search criterion: " + std::string{text_});
    }

private:
    void skip_blanks() {
        while (rest_.starts_with(' ')) {
            rest_.remove_prefix(1);
        }
    }

    std::string_view text_;
    std::string_view rest_;
};

}  // namespace

std::vector<Condition> parse_criterion(std::string_view text) {
    Reader reader{text};
    std::vector<Condition> conditions;
    do {
        if (!conditions.empty() && !same_name(reader.name(), "and")) {
            reader.fail();
        }
        Condition condition;
        condition.field = reader.name();
        reader.equals_sign();
        condition.value = reader.number();
        conditions.push_back(condition);
    } while (!reader.at_end());
    return conditions;
}

}  // namespace kelvar
