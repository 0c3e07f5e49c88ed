#include "rooms/format/room_record.h"

namespace marl {

const std::array<ExitDef, kExitSlots> kExits = {{
    {0, 0, "checkExitNorth", "North", "textNorthToVNum", "buttonExitNorth"},
    {1, 2, "checkExitSouth", "South", "textSouthToVNum", "buttonExitSouth"},
    {2, 1, "checkExitEast", "East", "textEastToVNum", "buttonExitEast"},
    {3, 3, "checkExitWest", "West", "textWestToVNum", "buttonExitWest"},
    {4, 4, "checkExitUp", "Up", "textUpToVNum", "buttonExitUp"},
    {5, 5, "checkExitDown", "Down", "textDownToVNum", "buttonExitDown"},
}};

int exitSlotOfDirection(int fileDirection) {
    for (const ExitDef& exit : kExits)
        if (exit.fileDirection == fileDirection)
            return exit.slot;
    return -1;
}

const std::array<ChoiceDef, 8> kSectorTypes = {{
    {0, "optionSecTypeInside", "Inside"},
    {1, "optionSecTypeCity", "City"},
    {2, "optionSecTypeField", "Field"},
    {3, "optionSecTypeForest", "Forest"},
    {4, "optionSecTypeHills", "Hills"},
    {5, "optionSecTypeMountain", "Mountain"},
    {6, "optionSecTypeWaterSwim", "Water (Swim)"},
    {7, "optionSecTypeWaterBoat", "Water (Boat)"},
}};

const std::array<FlagDef, 11> kRoomFlags = {{
    {'a', "checkBitVDark", "Dark"},
    {'b', "checkBitVDeath", "Death"},
    {'c', "checkBitVNoMob", "NoMob"},
    {'d', "checkBitVIndoors", "Indoors"},
    {'e', "checkBitVPeaceful", "Peaceful"},
    {'f', "checkBitVSoundProof", "SoundProof"},
    {'g', "checkBitVNoTrack", "NoTrack"},
    {'h', "checkBitVNoMagic", "NoMagic"},
    {'i', "checkBitVTunnel", "Tunnel"},
    {'j', "checkBitVPrivate", "Private"},
    {'k', "checkBitVGodRoom", "GodRoom"},
}};

} // namespace marl
