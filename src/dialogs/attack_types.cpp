#include "dialogs/attack_types.h"

namespace marl {

// The verbs of the server's own table, singular and plural.
const std::array<AttackTypeDef, 15> kAttackTypes = {{
    {0, "optionHit", "optionBHAHit", "hit/hits"},
    {1, "optionSting", "optionBHASting", "sting/stings"},
    {2, "optionWhip", "optionBHAWhip", "whip/whips"},
    {3, "optionSlash", "optionBHASlash", "slash/slashes"},
    {4, "optionBite", "optionBHABite", "bite/bites"},
    {5, "optionBludgeon", "optionBHABludgeon", "bludgeon/bludgeons"},
    {6, "optionCrush", "optionBHACrush", "crush/crushes"},
    {7, "optionPound", "optionBHAPound", "pound/pounds"},
    {8, "optionClaw", "optionBHAClaw", "claw/claws"},
    {9, "optionMaul", "optionBHAMaul", "maul/mauls"},
    {10, "optionThrash", "optionBHAThrash", "thrash/thrashes"},
    {11, "optionPierce", "optionBHAPierce", "pierce/pierces"},
    {12, "optionBlast", "optionBHABlast", "blast/blasts"},
    {13, "optionPunch", "optionBHAPunch", "punch/punches"},
    {14, "optionStab", "optionBHAStab", "stab/stabs"},
}};

const AttackTypeDef* findAttackType(int number) {
    for (const AttackTypeDef& type : kAttackTypes)
        if (type.number == number)
            return &type;
    return nullptr;
}

} // namespace marl
