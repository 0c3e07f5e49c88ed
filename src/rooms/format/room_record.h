#pragma once
// The room record and the room table.  Exits', sectors' and flags' controls
// and captions are the window's (rooms/room_controls.h).

#include <array>
#include <cstdint>
#include <span>
#include <string>

#include "world/record_table.h"
#include "world/slot_list.h"

namespace marl {

inline constexpr int kExitSlots = 6;

struct ExitRecord {
    std::int16_t Direction = 0; // the exit slot, set when read or edited
    std::string Desc;
    std::string Keywords;
    std::int16_t DoorKind = 0; // 0 none, 1 door, 2 pick-proof door
    std::int32_t KeyVNum = 0;  // -1: no key
    std::int32_t ToVNum = 0;   // -1: nowhere
    // The key and destination the exit dialog's "No Key" and "Nowhere" boxes
    // replaced by -1, given back when the box is unticked; never written.
    std::int32_t RememberedKey = 0;
    std::int32_t RememberedTo = 0;
    bool Absent = true; // the room has no exit this way
    bool operator==(const ExitRecord&) const = default;
};

struct RoomRecord {
    // The record's bytes as the file held them, from its `#` header up to the
    // next header, while it has not been stored from a window since it was
    // read: a record the builder did not touch is written back byte for byte.
    // Whatever stores into the record from a window empties it.
    std::string Source;
    // The empty and `*` lines that stood after the record in the file, up to
    // the next header: written after it when it is written field by field.
    std::string After;
    std::int32_t VNum = 0;
    std::string Name;
    std::string Desc;         // may span several lines, held with CR LF
    std::string BitV;         // the room flags, flag text as the file has it
    std::int16_t SecType = 0; // the sector type's number
    std::array<ExitRecord, kExitSlots> Exits{};
    SlotList<ExtraDesc, kExtraDescSlots> ExtraDescs; // only the slots in use are stored
    bool operator==(const RoomRecord&) const = default;
};

using RoomTable = RecordTable<RoomRecord>;

// The exit slots are north, south, east, west, up, down; the file numbers
// exits by the server's direction numbers (north 0, east 1, south 2, ...),
// the file's number of each slot.
inline constexpr std::array<int, kExitSlots> kExitFileDirections = {0, 2, 1, 3, 4, 5};
// The exit slot of a direction number of the file, or -1.
int exitSlotOfDirection(int fileDirection);

} // namespace marl
