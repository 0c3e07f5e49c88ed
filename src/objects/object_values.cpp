#include "objects/object_values.h"

#include <algorithm>

#include "dialogs/attack_types.h"
#include "objects/object_vocabulary.h"

namespace marl {

const DialogText kObjectValuesDialog = {"formObjectValues",
                                        "Object Values",
                                        nullptr,
                                        nullptr,
                                        "Changes to Object Values Not Saved.",
                                        "Object Values Not Saved"};

namespace {

constexpr ValueDef stored0() {
    return {ValueKind::Stored0, nullptr, nullptr, nullptr, {}, ValuePicker::None};
}
constexpr ValueDef labelled(const char* control, const char* label, const char* caption,
                            NumericRule rule) {
    return {ValueKind::Field, control, label, caption, rule, ValuePicker::None};
}
constexpr ValueDef picked(const char* control, const char* button, const char* caption,
                          NumericRule rule, ValuePicker picker) {
    return {ValueKind::Field, control, button, caption, rule, picker};
}
constexpr ValueDef poisoned(const char* control) {
    return {ValueKind::Poisoned, control, nullptr, "Poisoned", {}, ValuePicker::None};
}

// A spell number runs from -1 (none) to 201 (Identify, which stock scrolls
// cast).  Fields that have no upper bound of their own stop at their width.
constexpr NumericRule kSpellRule = rangeRule(3, -1, 201, true);
constexpr NumericRule kLevelRule = rangeRule(2, 1, 30);
constexpr NumericRule kUpTo127 = rangeRule(3, 1, 127);
constexpr NumericRule kDiceRule = rangeRule(3, 0, 127);
constexpr NumericRule kAmount5 = rangeRule(5, 0, 99999);

} // namespace

const std::array<ValueGroupDef, 9> kValueGroups = {{
    {"frameLight",
     "Light",
     {1, 0},
     {stored0(), stored0(),
      labelled("textLightDuration", "labelLightDuration", "Duration", rangeRule(5, -1, 99999)),
      stored0()}},
    {"frameScrollPotion",
     "Scroll/Potion",
     {2, 10},
     {labelled("textScrollPotionLevel", "labelScrollPotionLevel", "Level", kLevelRule),
      picked("textScrollPotionS1", "buttonScrollPotionS1", "Spell 1", kSpellRule,
             ValuePicker::Spells),
      picked("textScrollPotionS2", "buttonScrollPotionS2", "Spell 2", kSpellRule,
             ValuePicker::Spells),
      picked("textScrollPotionS3", "buttonScrollPotionS3", "Spell 3", kSpellRule,
             ValuePicker::Spells)}},
    {"frameWandStaff",
     "Wand/Staff",
     {3, 4},
     {labelled("textWandStaffLevel", "labelWandStaffLevel", "Level", kLevelRule),
      labelled("textWandStaffCharges", "labelWandStaffCharges", "Max Charges", kUpTo127),
      labelled("textWandStaffRemaining", "labelWandStaffRemaining", "Remaining", kUpTo127),
      picked("textWandStaffSpell", "buttonWandStaffSpell", "Spell", kSpellRule,
             ValuePicker::Spells)}},
    {"frameWeapon",
     "Weapon",
     {5, 0},
     {stored0(), labelled("textWeaponNumD", "labelWeaponNumD", "Num Dice", kDiceRule),
      labelled("textWeaponSizeD", "labelWeaponSizeD", "Die Size", kDiceRule),
      picked("textWeaponType", "buttonWeaponType", "Type", rangeRule(2, 0, 14),
             ValuePicker::WeaponTypes)}},
    {"frameArmor",
     "Armor",
     {9, 0},
     {labelled("textArmorACApply", "labelArmorACApply", "AC Apply", rangeRule(3, -127, 127, true)),
      stored0(), stored0(), stored0()}},
    {"frameContainer",
     "Container",
     {15, 0},
     {labelled("textContainerCapacity", "labelContainerCapacity", "Capacity", kAmount5),
      picked("textContainerState", "buttonContainerState", "State", rangeRule(2, 0, 15),
             ValuePicker::ContainerState),
      picked("textContainerKey", "buttonContainerKey", "Key", rangeRule(5, -1, 99999, true),
             ValuePicker::WorldObject),
      stored0()}},
    {"frameDrinkConFountain",
     "DrinkCon/Fountain",
     {17, 23},
     {labelled("textDrinkConFountainCapacity", "labelDrinkConFountainCapacity", "Capacity",
               kAmount5),
      labelled("textDrinkConFountainRemaining", "labelDrinkConFountainRemaining", "Remaining",
               kAmount5),
      picked("textDrinkConFountainLiquid", "buttonDrinkConFountainLiquid", "Liquid",
             rangeRule(2, 0, 15), ValuePicker::Liquids),
      poisoned("checkDrinkConFountainPoisoned")}},
    {"frameFood",
     "Food",
     {19, 0},
     {labelled("textFoodFillHours", "labelFoodFillHours", "Fill Hours", kAmount5), stored0(),
      stored0(), poisoned("checkFoodPoisoned")}},
    {"frameMoney",
     "Money",
     {20, 0},
     {labelled("textMoneyAmount", "labelMoneyAmount", "Amount", rangeRule(7, 0, 9999999)),
      stored0(), stored0(), stored0()}},
}};

const ValueGroupDef* findValueGroup(int type) {
    if (type == 0)
        return nullptr;
    for (const ValueGroupDef& group : kValueGroups)
        if (std::find(group.types.begin(), group.types.end(), type) != group.types.end())
            return &group;
    return nullptr;
}

// Captions kept word for word, spelling included ("Call Lightening").
const std::array<ChoiceDef, 53> kSpells = {{
    {-1, "optionNoSpell", "No Spell"},
    {1, "optionArmor", "Armor"},
    {2, "optionTeleport", "Teleport"},
    {3, "optionBless", "Bless"},
    {4, "optionBlindness", "Blindness"},
    {5, "optionBurningHands", "Burning Hands"},
    {6, "optionCallLightening", "Call Lightening"},
    {7, "optionCharm", "Charm"},
    {8, "optionChillTouch", "Chill Touch"},
    {9, "optionClone", "Clone"},
    {10, "optionColorSpray", "Color Spray"},
    {11, "optionControlWeather", "Control Weather"},
    {12, "optionCreateFood", "Create Food"},
    {13, "optionCreateWater", "Create Water"},
    {14, "optionCureBlind", "Cure Blind"},
    {15, "optionCureCritical", "Cure Critical"},
    {16, "optionCureLight", "Cure Light"},
    {17, "optionCurse", "Curse"},
    {18, "optionDetectAlign", "Detect Align"},
    {19, "optionDetectInvis", "Detect Invis"},
    {20, "optionDetectMagic", "Detect Magic"},
    {21, "optionDetectPoison", "Detect Poison"},
    {22, "optionDispelEvil", "Dispel Evil"},
    {23, "optionEarthquake", "Earthquake"},
    {24, "optionEnchantWeapon", "Enchant Weapon"},
    {25, "optionEnergyDrain", "Energy Drain"},
    {26, "optionFireball", "Fireball"},
    {27, "optionHarm", "Harm"},
    {28, "optionHeal", "Heal"},
    {29, "optionInvisibility", "Invisibility"},
    {30, "optionLighteningBolt", "Lightening Bolt"},
    {31, "optionLocateObject", "Locate Object"},
    {32, "optionMagicMissile", "Magic Missile"},
    {33, "optionPoison", "Poison"},
    {34, "optionProtectionFromEvil", "Protection From Evil"},
    {35, "optionRemoveCurse", "Remove Curse"},
    {36, "optionSanctuary", "Sanctuary"},
    {37, "optionShockingGrasp", "Shocking Grasp"},
    {38, "optionSleep", "Sleep"},
    {39, "optionStrength", "Strength"},
    {40, "optionSummon", "Summon"},
    {41, "optionVentriloquate", "Ventriloquate"},
    {42, "optionWordOfRecall", "Word of Recall"},
    {43, "optionRemovePoison", "Remove Poison"},
    {44, "optionSenseLife", "Sense Life"},
    {45, "optionAnimateDead", "Animate Dead"},
    {46, "optionDispelGood", "Dispel Good"},
    {47, "optionGroupArmor", "Group Armor"},
    {48, "optionGroupHeal", "Group Heal"},
    {49, "optionGroupRecall", "Group Recall"},
    {50, "optionInfravision", "Infravision"},
    {51, "optionWaterWalk", "WaterWalk"},
    {201, "optionIdentify", "Identify"},
}};

const std::array<LiquidDef, 16> kLiquids = {{
    {0, "optionWater", "Water", 10, 1, 0},
    {1, "optionBeer", "Beer", 5, 2, 3},
    {2, "optionWine", "Wine", 5, 2, 5},
    {3, "optionAle", "Ale", 5, 2, 2},
    {4, "optionDarkAle", "Dark Ale", 5, 2, 1},
    {5, "optionWhisky", "Whisky", 4, 1, 6},
    {6, "optionLemonade", "Lemonade", 8, 1, 0},
    {7, "optionFireBreather", "FireBreather", 0, 0, 10},
    {8, "optionLocalSpecial", "Local Special", 3, 3, 3},
    {9, "optionSlime", "Slime", -8, 4, 0},
    {10, "optionMilk", "Milk", 6, 3, 0},
    {11, "optionTea", "Tea", 6, 1, 0},
    {12, "optionCoffee", "Coffee", 6, 1, 0},
    {13, "optionBlood", "Blood", -1, 2, 0},
    {14, "optionSaltWater", "SaltWater", -2, 1, 0},
    {15, "optionClearWater", "ClearWater", 13, 0, 0},
}};

std::string liquidColumnLabel(int column, int side) {
    return std::string("label") + kLiquidColumns.at(std::size_t(column)) + std::to_string(side);
}

// A liquid's labels are named after its option: `optionDarkAle` has
// `labelDarkAleThirst`.
std::string liquidLabel(const LiquidDef& liquid, int column) {
    const std::string_view option = "option";
    return "label" + std::string(liquid.control).substr(option.size()) +
           kLiquidColumns.at(std::size_t(column));
}

int liquidEffect(const LiquidDef& liquid, int column) {
    const std::array<int, 3> effects = {liquid.thirst, liquid.fill, liquid.drunk};
    return effects.at(std::size_t(column));
}

namespace {

template <typename Def, std::size_t N>
std::vector<ChoiceDef> options(const std::array<Def, N>& table, const char* Def::*control) {
    std::vector<ChoiceDef> out;
    for (const Def& def : table)
        out.push_back({def.number, def.*control, def.caption});
    return out;
}

} // namespace

std::span<const PickListDef> pickLists() {
    static const std::array<PickListDef, 3> lists = {{
        {ValuePicker::Spells,
         {"formObjectSpells", "Object Spells", "frameObjectSpells", "Object Spells",
          "Changes to Spell Have Been Made.", "Spell Changed"},
         -1,
         options(kSpells, &ChoiceDef::control)},
        {ValuePicker::Liquids,
         {"formObjectLiquids", "Liquids", "frameLiquids", "Liquids",
          "Changes to Liquid Have Been Made.", "Liquid Changed"},
         0,
         options(kLiquids, &LiquidDef::control)},
        {ValuePicker::WeaponTypes,
         {"formObjectWType", "Weapon Type", "frameWType", "Weapon Type",
          "Changes to Weapon Type Have Been Made.", "Weapon Type Changed"},
         0,
         options(kAttackTypes, &AttackTypeDef::weaponControl)},
    }};
    return lists;
}

const PickListDef* findPickList(ValuePicker picker) {
    for (const PickListDef& list : pickLists())
        if (list.picker == picker)
            return &list;
    return nullptr;
}

NumberRange pickerRange(ValuePicker picker) {
    if (picker == ValuePicker::ContainerState) {
        int all = 0;
        for (const ChoiceDef& flag : kContainerStateFlags)
            all += flag.number;
        return {0, all};
    }
    const PickListDef* list = findPickList(picker);
    if (list == nullptr || list->options.empty())
        return {0, 0};
    const auto [low, high] = std::minmax_element(
        list->options.begin(), list->options.end(),
        [](const ChoiceDef& a, const ChoiceDef& b) { return a.number < b.number; });
    return {low->number, high->number};
}

} // namespace marl
