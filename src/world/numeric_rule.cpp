#include "world/numeric_rule.h"

#include <algorithm>

namespace marl {

bool numericKeyAllowed(char key, bool allowMinus) {
    return (key >= '0' && key <= '9') || (allowMinus && key == '-');
}

std::optional<std::int64_t> readNumber(std::string_view text) {
    const bool negative = !text.empty() && text.front() == '-';
    const std::string_view digits = negative ? text.substr(1) : text;
    if (digits.empty() || !std::all_of(digits.begin(), digits.end(),
                                       [](char c) { return c >= '0' && c <= '9'; }))
        return std::nullopt;
    // Accumulate with saturation, so that any run of digits has a value.
    constexpr std::int64_t limit = INT64_MAX / 10;
    std::int64_t value = 0;
    for (char c : digits) {
        if (value > limit) {
            value = INT64_MAX;
            break;
        }
        value = value * 10;
        const int digit = c - '0';
        value = value > INT64_MAX - digit ? INT64_MAX : value + digit;
    }
    return negative ? -value : value;
}

std::string applyRange(std::string_view text, std::int64_t min, std::int64_t max) {
    const std::optional<std::int64_t> value = readNumber(text);
    if (!value)
        return std::string(text);
    if (*value < min)
        return std::to_string(min);
    if (*value > max)
        return std::to_string(max);
    return std::string(text);
}

} // namespace marl
