#pragma once
// Dice texts `NdS+P` (number of dice, die size, bonus), as a mobile's hit
// points and bare-hand damage are held, and the three fields that show them.

#include <string>
#include <string_view>

namespace marl {

struct DiceParts {
    std::string count; // N
    std::string size;  // S
    std::string bonus; // P
    bool operator==(const DiceParts&) const = default;
};

// The three parts of a dice text: the count before the first `d`, the size
// between it and the first `+` after it, the bonus after that `+`, each up to
// the next separator of its kind.  A part whose separator is missing is
// empty: `0` gives `0`, ``, ``; `2d8` gives `2`, `8`, ``; `5+3` gives `5`, ``,
// `3`.
DiceParts splitDice(std::string_view text);

// `count`, `d`, `size`, `+`, `bonus` joined: the dice text of three fields.
std::string joinDice(const DiceParts& parts);

} // namespace marl
