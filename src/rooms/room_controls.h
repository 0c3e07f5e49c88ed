#pragma once
// The room editor's controls as data: its entry fields, the exits' boxes,
// fields and buttons, the sector options and the flag boxes, each with its
// number or letter, control name and caption.

#include <array>

#include "editor/form_text.h"
#include "rooms/format/room_record.h"
#include "world/vocabulary.h"

namespace marl {

// VNum and name, in the order Clear All empties them; Save waits for both.
extern const std::array<FieldDef, 2> kRoomFields;

// One row of exit controls per exit slot (see room_record.h).
struct ExitDef {
    int slot;
    const char* check;
    const char* caption;
    const char* toField;
    const char* button;
};
extern const std::array<ExitDef, kExitSlots> kExits;

extern const std::array<ChoiceDef, 8> kSectorTypes;
extern const std::array<FlagDef, 11> kRoomFlags;

} // namespace marl
