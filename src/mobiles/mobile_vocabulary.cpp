#include "mobiles/mobile_vocabulary.h"

namespace marl {

namespace {

constexpr FieldDef text(const char* frame, const char* caption, const char* control) {
    return {frame, caption, control, FieldKind::Text, textRule()};
}
constexpr FieldDef number(const char* frame, const char* caption, const char* control,
                          NumericRule rule) {
    return {frame, caption, control, FieldKind::Number, rule};
}

constexpr NumericRule kDieRule = rangeRule(2, 1, 99);
constexpr NumericRule kBonusRule = rangeRule(6, kInt32Min, kInt32Max, true);

} // namespace

const std::array<PositionDef, 4> kPositions = {{
    {4, "optionLoadSleeping", "optionSleeping", "Sleeping"},
    {5, "optionLoadResting", "optionResting", "Resting"},
    {6, "optionLoadSitting", "optionSitting", "Sitting"},
    {8, "optionLoadStanding", "optionStanding", "Standing"},
}};

const std::array<ChoiceDef, 3> kGenders = {{
    {0, "optionNeutral", "Neutral"},
    {1, "optionMale", "Male"},
    {2, "optionFemale", "Female"},
}};

// Over a third of the stock mobiles are evil, so the alignment takes `-`.
const std::array<FieldDef, 16> kMobileFields = {{
    number("frameVNum", "VNum", "textVNum", digitsRule(5)),
    text("frameAlias", "Alias List", "textAlias"),
    text("frameShort", "Short Description", "textSDesc"),
    text("frameLong", "Long Description", "textLDesc"),
    number("frameLevel", "Level", "textLevel", rangeRule(2, 1, 30)),
    number("frameAlign", "Align", "textAlign", rangeRule(5, -1000, 1000, true)),
    number("frameGold", "Gold", "textGold", rangeRule(0, kInt32Min, kInt32Max)),
    number("frameTHAC0", "THAC0", "textTHAC0", rangeRule(2, 1, 20)),
    number("frameAC", "AC", "textAC", rangeRule(3, -10, 10, true)),
    number("frameXP", "Experience", "textXP", rangeRule(0, kInt32Min, kInt32Max)),
    number("frameMHP", "Maximum Hit Points", "textMHPNumD", kDieRule),
    number("frameMHP", "Maximum Hit Points", "textMHPSizeD", kDieRule),
    number("frameMHP", "Maximum Hit Points", "textMHPPlus", kBonusRule),
    number("frameBHD", "Bare Hand Damage", "textBHDNumD", rangeRule(2, 1, 99, true)),
    number("frameBHD", "Bare Hand Damage", "textBHDSizeD", kDieRule),
    number("frameBHD", "Bare Hand Damage", "textBHDPlus", kBonusRule),
}};

const std::array<DiceFrameDef, 2> kMobileDice = {{
    {"frameMHP", "Maximum Hit Points", "textMHPNumD", "labelHPDie", "textMHPSizeD",
     "labelMaxHPPlus", "textMHPPlus", &MobileRecord::MHP},
    {"frameBHD", "Bare Hand Damage", "textBHDNumD", "labelBHDDie", "textBHDSizeD", "labelBHDPlus",
     "textBHDPlus", &MobileRecord::BHD},
}};

// The letter `d` has no box: the server sets it on every mobile itself.
const std::array<FlagDef, 17> kActionFlags = {{
    {'a', "checkSpec", "Spec"},
    {'b', "checkSentinel", "Sentinel"},
    {'c', "checkScavenger", "Scavenger"},
    {'e', "checkAware", "Aware"},
    {'f', "checkAggressive", "Aggressive"},
    {'g', "checkStayZone", "StayZone"},
    {'h', "checkWimpy", "Wimpy"},
    {'i', "checkAggrEvil", "AggrEvil"},
    {'j', "checkAggrGood", "AggrGood"},
    {'k', "checkAggrNeutral", "AggrNeutral"},
    {'l', "checkMemory", "Memory"},
    {'m', "checkHelper", "Helper"},
    {'n', "checkNoCharm", "NoCharm"},
    {'o', "checkNoSummon", "NoSummon"},
    {'p', "checkNoSleep", "NoSleep"},
    {'q', "checkNoBash", "NoBash"},
    {'r', "checkNoBlind", "NoBlind"},
}};

const std::array<FlagDef, 15> kAffectFlags = {{
    {'a', "checkBlind", "Blind"},
    {'b', "checkInvisible", "Invisible"},
    {'c', "checkDetectAlign", "DetectAlign"},
    {'d', "checkDetectInvis", "DetectInvis"},
    {'e', "checkDetectMagic", "DetectMagic"},
    {'f', "checkSenseLife", "SenseLife"},
    {'g', "checkWaterwalk", "Waterwalk"},
    {'h', "checkSanctuary", "Sanctuary"},
    {'j', "checkCurse", "Curse"},
    {'k', "checkInfravision", "Infravision"},
    {'m', "checkProtectEvil", "ProtectEvil"},
    {'n', "checkProtectGood", "ProtectGood"},
    {'p', "checkNoTrack", "NoTrack"},
    {'s', "checkSneak", "Sneak"},
    {'t', "checkHide", "Hide"},
}};

const FlagDialogDef kActionFlagDialog = {
    {"formMobileAction", "Action Bitvector", "frameActionBit", "Action Bitvector",
     "Changes to Action Bitvector Not Saved.", "Action Bitvector Not Saved"},
    kActionFlags,
    &MobileRecord::ActionBitV,
};

const FlagDialogDef kAffectFlagDialog = {
    {"formMobileAffect", "Affection Bitvector", "frameAffectionBit", "Affection Bitvector",
     "Changes to Affection Bitvector Not Saved.", "Affection Bitvector Not Saved"},
    kAffectFlags,
    &MobileRecord::AffectBitV,
};

const DialogText kESpecsDialog = {
    "formMobileESpecs", "Mobile ESpecs", nullptr, nullptr, "Changes to ESpecs Not Saved.",
    "ESpecs Not Saved"};

const std::array<AbilityDef, 7> kAbilities = {{
    {number("frameStr", "Str", "textStr", rangeRule(2, 1, 18)), &MobileRecord::Str},
    {number("frameStrAdd", "StrAdd", "textStrAdd", rangeRule(3, 1, 100)), &MobileRecord::StrAdd},
    {number("frameInt", "Int", "textInt", rangeRule(2, 1, 18)), &MobileRecord::Int},
    {number("frameWis", "Wis", "textWis", rangeRule(2, 1, 18)), &MobileRecord::Wis},
    {number("frameDex", "Dex", "textDex", rangeRule(2, 1, 18)), &MobileRecord::Dex},
    {number("frameCon", "Con", "textCon", rangeRule(2, 1, 18)), &MobileRecord::Con},
    {number("frameCha", "Cha", "textCha", rangeRule(2, 1, 18)), &MobileRecord::Cha},
}};

const DialogText kMobileDescDialog = {"formMobileDesc",
                                      "Mobile Detailed Description",
                                      "frameDesc",
                                      "Mobile Detailed Description",
                                      "Changes to Desc Not Saved.",
                                      "Desc Not Saved"};

} // namespace marl
