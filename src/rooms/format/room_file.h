#pragma once
// The world file (.wld): rooms read from and written to the server's text.

#include <cstdint>
#include <string>
#include <string_view>

#include "rooms/format/room_record.h"
#include "world/record_stream.h"

namespace marl {

// Reads a whole world file into a cleared table, slot 0 upward, and returns
// the number of rooms read.  Throws FormatError for a file the server could
// not read either; the table then holds the rooms read so far.
int readRooms(std::string_view bytes, RoomTable& table);
// The same records, each handed on as it is read.
int readRoomsEach(std::string_view bytes, RecordStream<RoomRecord>& stream);

// The text of a world file holding slots 0 to count - 1, in the table's line
// ends.  A room read and not stored since is written as it was read; any
// other with the given zone number, its exits in the order of their
// direction numbers (D0 to D5).
std::string writeRooms(const RoomTable& table, int count, std::int32_t zone);

} // namespace marl
