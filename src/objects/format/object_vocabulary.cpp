#include "objects/format/object_vocabulary.h"

namespace marl {

namespace {
constexpr NumericRule kAmountRule = rangeRule(0, 0, kInt32Max);
}

const std::array<FieldDef, 7> kObjectFields = {{
    {"frameVNum", "VNum", "textVNum", FieldKind::Number, digitsRule(5)},
    {"frameAlias", "Alias List", "textAlias", FieldKind::Text, textRule()},
    {"frameShort", "Short Description", "textSDesc", FieldKind::Text, textRule()},
    {"frameLong", "Long Description", "textLDesc", FieldKind::Text, textRule(), true},
    {"frameWeight", "Weight", "textWeight", FieldKind::Number, kAmountRule},
    {"frameCost", "Cost", "textCost", FieldKind::Number, kAmountRule},
    {"frameRPD", "Rent/Day", "textRPD", FieldKind::Number, kAmountRule},
}};

const DialogText kObjectAffectsDialog = {"formObjectAffects",
                                         "Object Affects",
                                         "frameObjectAffects",
                                         "Object Affects",
                                         "Changes to Object Affects Not Saved.",
                                         "Object Affects Not Saved"};

// The numbers 7, 8, 15 and 16 (class, level, gold, experience) have no
// option; an affect read with one is kept as it stands.
const std::array<ChoiceDef, 21> kAffectLocations = {{
    {0, "optionNone", "None"},
    {1, "optionStr", "Str"},
    {2, "optionDex", "Dex"},
    {3, "optionInt", "Int"},
    {4, "optionWis", "Wis"},
    {5, "optionCon", "Con"},
    {6, "optionCha", "Cha"},
    {9, "optionAge", "Age"},
    {10, "optionCharWeight", "CharWeight"},
    {11, "optionCharHeight", "CharHeight"},
    {12, "optionMana", "Mana"},
    {13, "optionHit", "Hit"},
    {14, "optionMove", "Move"},
    {17, "optionAC", "AC"},
    {18, "optionHitRoll", "HitRoll"},
    {19, "optionDamRoll", "DamRoll"},
    {20, "optionSavingPara", "SavingPara"},
    {21, "optionSavingRod", "SavingRod"},
    {22, "optionSavingPetri", "SavingPetri"},
    {23, "optionSavingBreath", "SavingBreath"},
    {24, "optionSavingSpell", "SavingSpell"},
}};

const FieldDef kAffectModifierField = {"frameValue", "Value", "textValue", FieldKind::Number,
                                       rangeRule(0, kInt32Min, kInt32Max, true)};

const DialogText kContainerStateDialog = {"formObjectContainerState",
                                          "Container State",
                                          "frameContainerState",
                                          "Container State",
                                          "Changes to Container State Have Been Made.",
                                          "Container State Changed"};

const std::array<ChoiceDef, 4> kContainerStateFlags = {{
    {1, "checkCloseable", "Closeable"},
    {2, "checkPickProof", "PickProof"},
    {4, "checkClosed", "Closed"},
    {8, "checkLocked", "Locked"},
}};

bool containerStateHas(int state, int bit) {
    return state >= 1 && state <= kContainerStateMax && (state & bit) != 0;
}

const DialogText kObjectActionDescDialog = {
    "formObjectActionDesc",      "Object Action Description",  "frameDesc",
    "Object Action Description", "Changes to Desc Not Saved.", "Desc Not Saved"};

} // namespace marl
