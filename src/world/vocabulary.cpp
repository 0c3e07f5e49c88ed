#include "world/vocabulary.h"

namespace marl {

std::string flagText(std::span<const FlagDef> table, const std::vector<bool>& set) {
    std::string text;
    for (std::size_t i = 0; i < table.size() && i < set.size(); ++i)
        if (set[i])
            text += table[i].letter;
    return text.empty() ? std::string("0") : text;
}

std::vector<bool> flagSet(std::span<const FlagDef> table, std::string_view text) {
    std::vector<bool> set;
    set.reserve(table.size());
    for (const FlagDef& flag : table)
        set.push_back(hasFlag(text, flag.letter));
    return set;
}

const ChoiceDef* findChoice(std::span<const ChoiceDef> table, int number) {
    for (const ChoiceDef& choice : table)
        if (choice.number == number)
            return &choice;
    return nullptr;
}

} // namespace marl
