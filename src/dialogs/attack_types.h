#pragma once
// The attack types 0 to 14: a weapon's type and a mobile's bare-hand attack
// are numbered alike, so both option groups are built from this one table.

#include <array>

namespace marl {

struct AttackTypeDef {
    int number;
    const char* weaponControl;   // option of the weapon-type pick list
    const char* bareHandControl; // option of the mobile's bare-hand attack
    const char* caption;         // the verb, singular and plural
};

extern const std::array<AttackTypeDef, 15> kAttackTypes;

// The attack type of this number, or null.
const AttackTypeDef* findAttackType(int number);

} // namespace marl
