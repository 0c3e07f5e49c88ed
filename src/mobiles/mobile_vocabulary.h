#pragma once
// The mobile editor's vocabularies and field rules as data: the editor's
// fields, the two flag dialogs (one class on two letter tables), the extended
// specs dialog and the detailed-description dialog.  Positions, genders and
// the extended keywords stay beside the record they describe.

#include <array>
#include <cstdint>
#include <span>
#include <string>

#include "editor/form_text.h"
#include "mobiles/format/mobile_record.h"
#include "world/vocabulary.h"

namespace marl {

// The editor window.
inline constexpr const char* kMobileListFrame = "frameMobileSelect";
inline constexpr const char* kMobileListFrameCaption = "Mobile Select";
inline constexpr const char* kMobileList = "listMobileSelect";

// The sixteen entry fields, in the order Clear All empties them.
extern const std::array<FieldDef, 16> kMobileFields;

// Hit points and bare-hand damage: a frame of three fields around the labels
// `d` and `+`, stored together as one dice text.
struct DiceFrameDef {
    const char* frame;
    const char* caption;
    const char* countControl;
    const char* dieLabel; // shows "d"
    const char* sizeControl;
    const char* plusLabel; // shows "+"
    const char* bonusControl;
    std::string MobileRecord::*field;
};
extern const std::array<DiceFrameDef, 2> kMobileDice;

// Positions, offered as two option groups: the load position (`LPos`) and
// the default position (`DPos`).
struct PositionDef {
    int number;
    const char* loadControl;
    const char* defaultControl;
    const char* caption;
};
extern const std::array<PositionDef, 4> kPositions;
inline constexpr const char* kLoadPositionFrame = "Load Position";
inline constexpr const char* kDefaultPositionFrame = "Default Position";

extern const std::array<ChoiceDef, 3> kGenders;
inline constexpr const char* kGenderFrame = "Gender";

// The frame objectNames of the three option groups.
inline constexpr const char* kGenderFrameControl = "frameGender";
inline constexpr const char* kLoadPositionFrameControl = "frameLoadPosition";
inline constexpr const char* kDefaultPositionFrameControl = "frameDefaultPosition";

// The action and affect flags, each edited by a dialog of check boxes.
extern const std::array<FlagDef, 17> kActionFlags;
extern const std::array<FlagDef, 15> kAffectFlags;

struct FlagDialogDef {
    DialogText text;
    std::span<const FlagDef> flags;
    std::string MobileRecord::*field; // the flag text the dialog edits
};
extern const FlagDialogDef kActionFlagDialog;
extern const FlagDialogDef kAffectFlagDialog;

// The extended specs dialog: the bare-hand attack (options from the attack
// types) and seven abilities.
extern const DialogText kESpecsDialog;
inline constexpr const char* kBareHandFrame = "frameBHA";
inline constexpr const char* kBareHandFrameCaption = "BareHandAttack";

struct AbilityDef {
    FieldDef field;
    std::int16_t MobileRecord::*value;
};
extern const std::array<AbilityDef, 7> kAbilities;

// The detailed description's text dialog.
extern const DialogText kMobileDescDialog;

} // namespace marl
