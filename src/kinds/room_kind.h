#pragma once
// The room kind: world files (.wld), one RoomRecord a room.

#include <cstdint>
#include <string>
#include <string_view>

#include "kinds/kind_info.h"
#include "rooms/format/room_checks.h"
#include "rooms/format/room_file.h"

namespace marl {

struct RoomKind {
    using Record = RoomRecord;
    using File = RoomTable;
    using Window = class FormRoom;
    static constexpr KindInfo info = {
        1,
        "Room",
        ".wld",
        "World files (*.wld)|*.wld",
        "New World File",
        "Open World File",
        "room",
        "rooms",
        {"formRoom", "Room Editor", "Changes to Room Not Saved.", "Room Not Saved",
         "Room Not Deleted", "Overwrite Existing Room?", "Overwrite Existing Room",
         "Really Delete This Room?", "Zone Already Contains 99 Rooms"}};

    static int read(std::string_view bytes, File& file) { return readRooms(bytes, file); }
    // The records one at a time, as the whole world is read.
    static int readEach(std::string_view bytes, RecordStream<Record>& each) {
        return readRoomsEach(bytes, each);
    }
    // Rooms carry the zone number in their numbers line.
    static std::string write(const File& file, int count, std::int32_t zone) {
        return writeRooms(file, count, zone);
    }
    // What the server refuses or logs of a record.
    static Findings problems(const Record& room, LineEnd lineEnd) {
        Findings found;
        checkRoomTexts(found, room, lineEnd);
        return found;
    }
    // What the editor's list shows after the VNum.
    static const std::string& listName(const Record& room) { return room.Name; }
};

} // namespace marl
