#pragma once
// Vocabularies are data: each flag set or option group is one table of
// letter or number, control name and caption, from which the windows build
// their check boxes and options.

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace marl {

struct FlagDef {
    char letter;
    const char* control;
    const char* caption;
};

struct ChoiceDef {
    int number;
    const char* control;
    const char* caption;
};

// A flag is set exactly when its letter occurs anywhere in the flag text.
inline bool hasFlag(std::string_view flagText, char letter) {
    return flagText.find(letter) != std::string_view::npos;
}

// The letters of the set flags in table order, or `0` when none is set.
// `set[i]` belongs to `table[i]`.
std::string flagText(std::span<const FlagDef> table, const std::vector<bool>& set);

// The flags of a table that a flag text sets, in table order.
std::vector<bool> flagSet(std::span<const FlagDef> table, std::string_view flagText);

// The entry with this number, or null.
const ChoiceDef* findChoice(std::span<const ChoiceDef> table, int number);

} // namespace marl
