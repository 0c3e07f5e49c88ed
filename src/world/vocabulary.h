#pragma once
// Vocabularies are data: each flag set or option group is one table of
// letter or number, control name and caption, from which the windows build
// their check boxes and options.
//
// Flag texts are read the way the server reads them.  A text made only of
// digits is a bit mask; otherwise each letter sets one bit (`a` to `z` are
// bits 0 to 25, `A` to `F` bits 26 to 31) and anything else sets nothing.
// So `10`, `bd` and `db` all mean the same two flags.

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

using FlagBits = std::uint32_t;

// The bit of a flag letter, or -1 for a character that names no bit.
int flagBit(char letter);
// The letter of bit 0 to 31.
char flagLetter(int bit);

// The flags a flag text sets.  A number too large for 32 bits keeps its
// lowest 32 bits, as a 32-bit server would.
FlagBits flagBits(std::string_view flagText);

// Whether the flag of this letter is set in the flag text.
inline bool hasFlag(std::string_view flagText, char letter) {
    const int bit = flagBit(letter);
    return bit >= 0 && (flagBits(flagText) >> bit & 1u) != 0;
}

// The letters of the set flags: first those of the table, in table order,
// then those of bits the table has no entry for, in bit order, so that no
// set flag is lost.  `0` when nothing is set.
std::string flagText(std::span<const FlagDef> table, FlagBits bits);

// The bits of the table's letters.
FlagBits tableBits(std::span<const FlagDef> table);

// The same with one truth value per table entry (`set[i]` for `table[i]`).
std::string flagText(std::span<const FlagDef> table, const std::vector<bool>& set);
std::vector<bool> flagSet(std::span<const FlagDef> table, std::string_view flagText);

// The entry with this number, or null.
const ChoiceDef* findChoice(std::span<const ChoiceDef> table, int number);

} // namespace marl
