#pragma once
// The three kinds of zone file in one place: for each, its record and table,
// the extension of its files, what it is called, and its reader and writer.
// Tools, tests and windows that handle "any zone file" go through this table
// instead of keeping lists of their own.  It stands above the kinds' folders
// (it includes all three), in the format library: standard C++ only.

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "mobiles/format/mobile_checks.h"
#include "mobiles/format/mobile_file.h"
#include "objects/format/object_checks.h"
#include "objects/format/object_file.h"
#include "rooms/format/room_checks.h"
#include "rooms/format/room_file.h"

namespace marl {

struct RoomKind {
    using Record = RoomRecord;
    using Table = RoomTable;
    static constexpr std::string_view extension = ".wld";
    static constexpr std::string_view noun = "Room"; // in captions and messages
    static constexpr std::string_view one = "room";  // in counts: "1 room"
    static constexpr std::string_view many = "rooms";
    static int read(std::string_view bytes, Table& table) { return readRooms(bytes, table); }
    // Rooms carry the zone number in their numbers line.
    static std::string write(Table& table, int count, std::int32_t zone) {
        return writeRooms(table, count, zone);
    }
    static Table& table() { return roomTable(); }
    // What the server refuses or logs of a record.
    static Findings problems(const Record& room, LineEnd lineEnd) {
        Findings found;
        checkRoomTexts(found, room, lineEnd);
        return found;
    }
};

struct MobileKind {
    using Record = MobileRecord;
    using Table = MobileTable;
    static constexpr std::string_view extension = ".mob";
    static constexpr std::string_view noun = "Mobile";
    static constexpr std::string_view one = "mobile";
    static constexpr std::string_view many = "mobiles";
    static int read(std::string_view bytes, Table& table) { return readMobiles(bytes, table); }
    static std::string write(Table& table, int count, std::int32_t /*zone*/) {
        return writeMobiles(table, count);
    }
    static Table& table() { return mobileTable(); }
    static Findings problems(const Record& mobile, LineEnd lineEnd) {
        Findings found;
        checkMobileTexts(found, mobile, lineEnd);
        return found;
    }
};

struct ObjectKind {
    using Record = ObjectRecord;
    using Table = ObjectTable;
    static constexpr std::string_view extension = ".obj";
    static constexpr std::string_view noun = "Object";
    static constexpr std::string_view one = "object";
    static constexpr std::string_view many = "objects";
    static int read(std::string_view bytes, Table& table) { return readObjects(bytes, table); }
    static std::string write(Table& table, int count, std::int32_t /*zone*/) {
        return writeObjects(table, count);
    }
    static Table& table() { return objectTable(); }
    static Findings problems(const Record& object, LineEnd lineEnd) {
        return objectProblems(object, lineEnd);
    }
};

// Calls `visit.template operator()<Kind>()` for the three kinds, in menu order
// (mobiles, rooms, objects).
template <typename Visit> void forEachZoneKind(Visit&& visit) {
    visit.template operator()<MobileKind>();
    visit.template operator()<RoomKind>();
    visit.template operator()<ObjectKind>();
}

// Calls `visit.template operator()<Kind>()` for the kind whose extension is
// `extension` (".wld"), and says whether there is one.
template <typename Visit> bool withZoneKind(std::string_view extension, Visit&& visit) {
    bool found = false;
    forEachZoneKind([&]<typename Kind>() {
        if (!found && extension == Kind::extension) {
            found = true;
            visit.template operator()<Kind>();
        }
    });
    return found;
}

// The same kinds as plain data, for code that only names them.
struct ZoneKindInfo {
    std::string_view extension;
    std::string_view noun;
    std::string_view one;
    std::string_view many;
};

template <typename Kind> constexpr ZoneKindInfo zoneKindInfo() {
    return {Kind::extension, Kind::noun, Kind::one, Kind::many};
}

inline constexpr std::array<ZoneKindInfo, 3> kZoneKinds = {
    zoneKindInfo<MobileKind>(), zoneKindInfo<RoomKind>(), zoneKindInfo<ObjectKind>()};

} // namespace marl
