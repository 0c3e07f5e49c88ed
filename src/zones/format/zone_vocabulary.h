#pragma once
// The words of the zone editor: the command kinds, wear positions,
// directions, door states and reset modes, each a table of number (or
// letter), control name and caption for the window to build its options
// from.  Standard C++ only.

#include <array>

#include "world/vocabulary.h"

namespace marl {

// The seven commands by letter, and the comment line (kComment).
extern const std::array<ChoiceDef, 8> kZoneCommands;
// Where E puts the object on the mobile, 0-17 as the server numbers them.
extern const std::array<ChoiceDef, 18> kWearPositions;
// D's direction, 0-5 as the server numbers them.
extern const std::array<ChoiceDef, 6> kZoneDirections;
// D's door state: open, closed, closed and locked.
extern const std::array<ChoiceDef, 3> kDoorStates;
// The header's reset mode.
extern const std::array<ChoiceDef, 3> kResetModes;

} // namespace marl
