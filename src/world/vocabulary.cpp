#include "world/vocabulary.h"

#include <algorithm>

namespace marl {

int flagBit(char letter) {
    if (letter >= 'a' && letter <= 'z')
        return letter - 'a';
    if (letter >= 'A' && letter <= 'F')
        return 26 + (letter - 'A');
    return -1;
}

char flagLetter(int bit) {
    return static_cast<char>(bit < 26 ? 'a' + bit : 'A' + (bit - 26));
}

FlagBits flagBits(std::string_view text) {
    const bool digits = !text.empty() && std::all_of(text.begin(), text.end(),
                                                     [](char c) { return c >= '0' && c <= '9'; });
    FlagBits bits = 0;
    if (digits) {
        // Unsigned arithmetic wraps, which keeps the lowest 32 bits.
        for (char c : text)
            bits = bits * 10u + static_cast<FlagBits>(c - '0');
        return bits;
    }
    for (char c : text)
        if (const int bit = flagBit(c); bit >= 0)
            bits |= FlagBits{1} << bit;
    return bits;
}

FlagBits tableBits(std::span<const FlagDef> table) {
    FlagBits bits = 0;
    for (const FlagDef& flag : table)
        if (const int bit = flagBit(flag.letter); bit >= 0)
            bits |= FlagBits{1} << bit;
    return bits;
}

std::string flagText(std::span<const FlagDef> table, FlagBits bits) {
    std::string text;
    for (const FlagDef& flag : table)
        if (const int bit = flagBit(flag.letter); bit >= 0 && (bits >> bit & 1u))
            text += flag.letter;
    const FlagBits rest = bits & ~tableBits(table);
    for (int bit = 0; bit < 32; ++bit)
        if (rest >> bit & 1u)
            text += flagLetter(bit);
    return text.empty() ? std::string("0") : text;
}

std::string flagText(std::span<const FlagDef> table, const std::vector<bool>& set) {
    FlagBits bits = 0;
    for (std::size_t i = 0; i < table.size() && i < set.size(); ++i)
        if (const int bit = flagBit(table[i].letter); set[i] && bit >= 0)
            bits |= FlagBits{1} << bit;
    return flagText(table, bits);
}

std::vector<bool> flagSet(std::span<const FlagDef> table, std::string_view text) {
    const FlagBits bits = flagBits(text);
    std::vector<bool> set;
    set.reserve(table.size());
    for (const FlagDef& flag : table) {
        const int bit = flagBit(flag.letter);
        set.push_back(bit >= 0 && (bits >> bit & 1u) != 0);
    }
    return set;
}

const ChoiceDef* findChoice(std::span<const ChoiceDef> table, int number) {
    for (const ChoiceDef& choice : table)
        if (choice.number == number)
            return &choice;
    return nullptr;
}

} // namespace marl
