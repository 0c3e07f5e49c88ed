#pragma once
// The room editor's controls as data: its entry fields with their frames,
// captions and key rules.

#include <array>

#include "world/form_text.h"

namespace marl {

// VNum and name, in the order Clear All empties them; Save waits for both.
extern const std::array<FieldDef, 2> kRoomFields;

} // namespace marl
