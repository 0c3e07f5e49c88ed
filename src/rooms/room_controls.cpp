#include "rooms/room_controls.h"

namespace marl {

const std::array<FieldDef, 2> kRoomFields = {{
    {"frameVNum", "VNum", "textVNum", FieldKind::Number, digitsRule(5)},
    {"frameName", "Room Name", "textName", FieldKind::Text, textRule()},
}};

const std::array<ExitDef, kExitSlots> kExits = {{
    {0, "checkExitNorth", "North", "textNorthToVNum", "buttonExitNorth"},
    {1, "checkExitSouth", "South", "textSouthToVNum", "buttonExitSouth"},
    {2, "checkExitEast", "East", "textEastToVNum", "buttonExitEast"},
    {3, "checkExitWest", "West", "textWestToVNum", "buttonExitWest"},
    {4, "checkExitUp", "Up", "textUpToVNum", "buttonExitUp"},
    {5, "checkExitDown", "Down", "textDownToVNum", "buttonExitDown"},
}};

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
