#include "objects/format/object_record.h"

namespace marl {

int affectCount(const ObjectRecord& object) {
    return static_cast<int>(object.Affects.count());
}

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

const std::array<FlagDef, 17> kEffectFlags = {{
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

const std::array<FlagDef, 15> kWearFlags = {{
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

} // namespace marl
