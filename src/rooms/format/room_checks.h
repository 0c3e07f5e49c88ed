#pragma once
// What the server refuses of a room: a text past its limit.

#include "rooms/format/room_record.h"
#include "world/server_limits.h"

namespace marl {

// Each text of the room past the server's limit, written in `lineEnd`.
void checkRoomTexts(Findings& found, const RoomRecord& room, LineEnd lineEnd);

} // namespace marl
