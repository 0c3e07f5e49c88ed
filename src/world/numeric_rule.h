#pragma once
// The rules of a numeric entry field: which keys pass, how long the text may
// grow, and the range rule run on every change of its text.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace marl {

struct NumericRule {
    int maxLength = 0;        // 0: no limit
    bool allowMinus = false;  // `-` passes the key filter
    bool hasRange = false;
    std::int64_t min = 0;
    std::int64_t max = 0;
};

// The key filter: digits always, `-` where the field takes negatives.
bool numericKeyAllowed(char key, bool allowMinus);

// The text the range rule leaves.  An empty text, a lone `-` and text that
// does not read as a number are left alone; a number below the minimum
// becomes the minimum and one above the maximum the maximum, however many
// digits it has.
std::string applyRange(std::string_view text, std::int64_t min, std::int64_t max);

// The value of a field's text when it reads as a whole number (an optional
// `-` and digits, any length clamped to the 64-bit range), otherwise nothing.
std::optional<std::int64_t> readNumber(std::string_view text);

} // namespace marl
