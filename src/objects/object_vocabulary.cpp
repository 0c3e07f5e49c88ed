#include "objects/object_vocabulary.h"

namespace marl {

const std::array<ObjectTypeDef, 19> kObjectTypes = {{
    {1, "optionLight", "Light", true},
    {2, "optionScroll", "Scroll", true},
    {3, "optionWand", "Wand", true},
    {4, "optionStaff", "Staff", true},
    {5, "optionWeapon", "Weapon", true},
    {8, "optionTreasure", "Treasure", false},
    {9, "optionArmor", "Armor", true},
    {10, "optionPotion", "Potion", true},
    {12, "optionOther", "Other", false},
    {13, "optionTrash", "Trash", false},
    {15, "optionContainer", "Container", true},
    {16, "optionNote", "Note", false},
    {17, "optionDrinkCon", "DrinkCon", true},
    {18, "optionKey", "Key", false},
    {19, "optionFood", "Food", true},
    {20, "optionMoney", "Money", true},
    {21, "optionPen", "Pen", false},
    {22, "optionBoat", "Boat", false},
    {23, "optionFountain", "Fountain", true},
}};

const ObjectTypeDef* findObjectType(int number) {
    for (const ObjectTypeDef& type : kObjectTypes)
        if (type.number == number)
            return &type;
    return nullptr;
}

constexpr std::array<FlagDef, kEffectFlagCount> kEffectFlags = {{
    {'a', "checkGlow", "Glow"},
    {'b', "checkHum", "Hum"},
    {'c', "checkNoRent", "NoRent"},
    {'d', "checkNoDonate", "NoDonate"},
    {'e', "checkNoInvis", "NoInvis"},
    {'f', "checkInvisible", "Invisible"},
    {'g', "checkMagic", "Magic"},
    {'h', "checkNoDrop", "NoDrop"},
    {'i', "checkBless", "Bless"},
    {'j', "checkAntiGood", "AntiGood"},
    {'k', "checkAntiEvil", "AntiEvil"},
    {'l', "checkAntiNeutral", "AntiNeutral"},
    {'m', "checkAntiMagicUser", "AntiMagicUser"},
    {'n', "checkAntiCleric", "AntiCleric"},
    {'o', "checkAntiThief", "AntiThief"},
    {'p', "checkAntiWarrior", "AntiWarrior"},
    {'q', "checkNoSell", "NoSell"},
}};

constexpr std::array<FlagDef, kWearFlagCount> kWearFlags = {{
    {'a', "checkTake", "Take"},
    {'b', "checkFinger", "Finger"},
    {'c', "checkNeck", "Neck"},
    {'d', "checkBody", "Body"},
    {'e', "checkHead", "Head"},
    {'f', "checkLegs", "Legs"},
    {'g', "checkFeet", "Feet"},
    {'h', "checkHands", "Hands"},
    {'i', "checkArms", "Arms"},
    {'j', "checkShield", "Shield"},
    {'k', "checkAbout", "About"},
    {'l', "checkWaist", "Waist"},
    {'m', "checkWrist", "Wrist"},
    {'n', "checkWield", "Wield"},
    {'o', "checkHold", "Hold"},
}};

// The boxes are the flags the server names, which its checks count (a to q,
// a to o): a row short would leave the last one empty.
static_assert(kEffectFlags.back().letter == 'a' + kEffectFlagCount - 1);
static_assert(kWearFlags.back().letter == 'a' + kWearFlagCount - 1);

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
