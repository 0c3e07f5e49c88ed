#pragma once
// What the server refuses or logs of a room: a text past its limit, flags
// it does not name.

#include "rooms/format/room_record.h"
#include "world/server_limits.h"

namespace marl {

// Each text of the room past the server's limit, written in `lineEnd`.
void checkRoomTexts(Findings& found, const RoomRecord& room, LineEnd lineEnd);
// Room flags beyond the 16 the server names, which it logs.
void checkRoomFlags(Findings& found, const RoomRecord& room);

} // namespace marl
