#pragma once
// The type-specific values as data: per group of object types, its four
// values with their fields, captions, rules and the pick list or dialog a
// button beside a field opens; and the three pick lists (spells, liquids,
// weapon types), one design on three tables.

#include <array>
#include <span>
#include <string>
#include <vector>

#include "editor/form_text.h"
#include "objects/format/object_record.h"
#include "world/vocabulary.h"

namespace marl {

extern const DialogText kObjectValuesDialog;

// What a button beside a values field opens: a pick list, the container
// state, or the objects of the world (a key), whose name the field shows.
enum class ValuePicker { None, Spells, Liquids, WeaponTypes, ContainerState, WorldObject };

enum class ValueKind {
    Stored0,  // no field: written as 0
    Field,    // a numeric field
    Poisoned, // a check box: -1 when checked, 0 when not; any value but 0 checks it
};

struct ValueDef {
    ValueKind kind;
    const char* control;        // the field or check box; null for Stored0
    const char* captionControl; // the field's label, or its button; null otherwise
    const char* caption;        // of that label, button or check box
    NumericRule rule;           // for a field
    ValuePicker picker;
};

struct ValueGroupDef {
    const char* frame;
    const char* caption;
    std::array<int, 2> types; // the object types the group serves; 0: none
    std::array<ValueDef, kObjectValues> values;
};
extern const std::array<ValueGroupDef, 9> kValueGroups;

// The group of an object type, or null when the type has no values.
const ValueGroupDef* findValueGroup(int type);

// A light's "Eternal" box: checked, the duration (value 2) reads -1.
inline constexpr const char* kEternalCheck = "checkEternal";
inline constexpr const char* kEternalCaption = "Eternal";
inline constexpr int kEternalValue = 2;
inline constexpr int kEternalDuration = -1;

// The spells, and the liquids with their effect on a drinker.
extern const std::array<ChoiceDef, 53> kSpells;
struct LiquidDef {
    int number;
    const char* control;
    const char* caption;
    int thirst;
    int fill;
    int drunk;
};
extern const std::array<LiquidDef, 16> kLiquids;

// A liquid's effect columns: their captions, the labels over the two columns
// of liquids ("labelThirst1"), and each liquid's labels ("labelWaterThirst").
inline constexpr std::array<const char*, 3> kLiquidColumns = {"Thirst", "Fill", "Drunk"};
std::string liquidColumnLabel(int column, int side); // side 1 or 2
std::string liquidLabel(const LiquidDef& liquid, int column);
int liquidEffect(const LiquidDef& liquid, int column);

struct PickListDef {
    ValuePicker picker;
    DialogText text; // title and frame caption are one text
    int defaultNumber;
    std::vector<ChoiceDef> options;
};

// The three pick lists, and the one a button opens (null for the container
// state, which is a dialog of check boxes).
std::span<const PickListDef> pickLists();
const PickListDef* findPickList(ValuePicker picker);

// The lowest and highest number a picker hands back.
struct NumberRange {
    int min;
    int max;
};
NumberRange pickerRange(ValuePicker picker);

} // namespace marl
