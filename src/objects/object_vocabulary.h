#pragma once
// The object editor's vocabularies and field rules as data, beside the
// types and flags in the record's header: the editor's fields and frames,
// the affect locations, the container state flags and the texts of the
// affects, container-state and action-description dialogs.  The values
// groups and the pick lists are in object_values.h.

#include <array>

#include "editor/form_text.h"
#include "objects/format/object_record.h"
#include "world/vocabulary.h"

namespace marl {

// The object types that have an option in the editor.
struct ObjectTypeDef {
    int number;
    const char* control;
    const char* caption;
    bool hasValues; // the type-specific values dialog opens for it
};
extern const std::array<ObjectTypeDef, 19> kObjectTypes;
const ObjectTypeDef* findObjectType(int number);
inline constexpr int kObjectTypeOther = 12;
inline constexpr const char* kObjectTypeFrame = "Object Type";

extern const std::array<FlagDef, kEffectFlagCount> kEffectFlags;
inline constexpr const char* kEffectFrame = "Effect Bitvector";
extern const std::array<FlagDef, kWearFlagCount> kWearFlags;
inline constexpr const char* kWearFrame = "Wear Bitvector";

// The editor window.
inline constexpr const char* kObjectListFrame = "frameObjectSelect";
inline constexpr const char* kObjectListFrameCaption = "Object Select";
inline constexpr const char* kObjectList = "listObjectSelect";
inline constexpr const char* kObjectTypeFrameControl = "frameType";
inline constexpr const char* kEffectFrameControl = "frameEBitV";
inline constexpr const char* kWearFrameControl = "fraActionBit";

// The seven entry fields, in the order Clear All empties them.  The long
// description may be empty: some stock objects have none.
extern const std::array<FieldDef, 7> kObjectFields;

// The affects dialog: one option per location, and the modifier.
extern const DialogText kObjectAffectsDialog;
extern const std::array<ChoiceDef, 21> kAffectLocations;
inline constexpr int kAffectLocationNone = 0;
inline constexpr const char* kAffectLocationFrame = "frameAffectType";
inline constexpr const char* kAffectLocationFrameCaption = "Affect Type";
inline constexpr const char* kAffectList = "listObjectAffects";
extern const FieldDef kAffectModifierField;

// The container state: the sum of the bit values (the table's numbers) of
// the boxes checked.
extern const DialogText kContainerStateDialog;
extern const std::array<ChoiceDef, 4> kContainerStateFlags;
inline constexpr int kContainerStateMax = 15;

// Whether a state number checks the box of `bit`: only a number from 1 to 15
// checks any box.
bool containerStateHas(int state, int bit);

// The action description's text dialog.
extern const DialogText kObjectActionDescDialog;

} // namespace marl
