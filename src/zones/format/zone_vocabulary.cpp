#include "zones/format/zone_vocabulary.h"

#include "zones/format/zone_record.h"

namespace marl {

const std::array<ChoiceDef, 8> kZoneCommands = {{
    {'M', "optionLoadMobile", "Load mobile (M)"},
    {'O', "optionLoadObject", "Load object (O)"},
    {'G', "optionGive", "Give object (G)"},
    {'E', "optionEquip", "Equip object (E)"},
    {'P', "optionPut", "Put in container (P)"},
    {'D', "optionDoor", "Set door (D)"},
    {'R', "optionRemove", "Remove object (R)"},
    {kComment, "optionComment", "Comment line"},
}};

const std::array<ChoiceDef, 18> kWearPositions = {{
    {0, "", "as light"},
    {1, "", "on right finger"},
    {2, "", "on left finger"},
    {3, "", "around neck (1)"},
    {4, "", "around neck (2)"},
    {5, "", "on body"},
    {6, "", "on head"},
    {7, "", "on legs"},
    {8, "", "on feet"},
    {9, "", "on hands"},
    {10, "", "on arms"},
    {11, "", "as shield"},
    {12, "", "about body"},
    {13, "", "around waist"},
    {14, "", "on right wrist"},
    {15, "", "on left wrist"},
    {16, "", "wielded"},
    {17, "", "held"},
}};

const std::array<ChoiceDef, 6> kZoneDirections = {{
    {0, "optionNorth", "North"},
    {1, "optionEast", "East"},
    {2, "optionSouth", "South"},
    {3, "optionWest", "West"},
    {4, "optionUp", "Up"},
    {5, "optionDown", "Down"},
}};

const std::array<ChoiceDef, 3> kDoorStates = {{
    {0, "optionDoorOpen", "Open"},
    {1, "optionDoorClosed", "Closed"},
    {2, "optionDoorLocked", "Closed and locked"},
}};

const std::array<ChoiceDef, 3> kResetModes = {{
    {0, "optionResetNever", "Never"},
    {1, "optionResetEmpty", "When no player is in it"},
    {2, "optionResetAlways", "Always"},
}};

} // namespace marl
