#include "world/dice.h"

#include <utility>

namespace marl {

namespace {

// The text up to the first `separator` (all of it when there is none), and
// what follows that separator (nothing when there is none).
std::pair<std::string_view, std::string_view> cut(std::string_view text, char separator) {
    const std::size_t at = text.find(separator);
    if (at == std::string_view::npos)
        return {text, {}};
    return {text.substr(0, at), text.substr(at + 1)};
}

// The text up to the first `separator`: a part ends at the next separator of
// its own kind, as when the text is split at each of them.
std::string_view upTo(std::string_view text, char separator) {
    return cut(text, separator).first;
}

} // namespace

DiceParts splitDice(std::string_view text) {
    const bool hasD = text.find('d') != std::string_view::npos;
    // Without a `d` the text before a `+` is the count and no size is given.
    const auto [count, rest] = cut(text, hasD ? 'd' : '+');
    const auto [size, bonus] = hasD ? cut(rest, '+') : std::pair{std::string_view{}, rest};
    return {std::string(count), std::string(upTo(size, 'd')), std::string(upTo(bonus, '+'))};
}

std::string joinDice(const DiceParts& parts) {
    return parts.count + 'd' + parts.size + '+' + parts.bonus;
}

} // namespace marl
