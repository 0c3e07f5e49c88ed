#pragma once
// What the room editor's GUI tests share: a small zone of our own, the rooms
// of a table in a line of text, and the room editor under a builder's script
// (the player itself is in tests/support).

#include "rooms/form_room.h"
#include "rooms/room_file.h"
#include "script_player.h"
#include "widgets/qt_text.h"

namespace marl::test {

// Zone 95: three rooms with exits, doors, extra descriptions and flags; then
// its rooms as roomsOf (below) gives them.
inline std::string smallZone() {
    return lf({"#9500",
               "The Landing~",
               "A wooden landing.",
               "~",
               "95 0 2",
               "D0",
               "A track north.",
               "~",
               "~",
               "0 -1 9501",
               "D1",
               "The river.",
               "~",
               "~",
               "0 -1 -1",
               "E",
               "bell~",
               "A green bell.",
               "~",
               "S",
               "#9501",
               "Reed Cottages~",
               "Low cottages.",
               "Smoke curls.",
               "~",
               "95 ad 1",
               "D3",
               "A stout door.",
               "~",
               "door stout~",
               "1 9510 9502",
               "S",
               "#9502",
               "The Kitchen~",
               "A warm kitchen.",
               "~",
               "95 k 9",
               "D1",
               "~",
               "door~",
               "2 -1 9501",
               "E",
               "ladder~",
               "Worn rungs.",
               "~",
               "E",
               "pot~",
               "Stew.",
               "~",
               "S",
               "$"});
}
inline const QString smallRooms =
    "9500 The Landing 0/2 North:0/-1/9501/ East:0/-1/-1/ +bell; 9501 Reed Cottages ad/1 "
    "West:1/9510/9502/door stout; 9502 The Kitchen k/9 East:2/-1/9501/door +ladder +pot";

// The rooms of a table, "; " between them: VNum, name, flags/sector, each
// present exit as Direction:kind/key/to/keywords, "+keywords" for each extra
// description; "cleared" for a cleared room.
inline QString roomsOf(const RoomTable& table, int count) {
    QStringList rooms;
    for (int slot = 0; slot < count; ++slot) {
        const RoomRecord& room = table[slot];
        QString line = QString("%1 %2 %3/%4")
                           .arg(room.VNum)
                           .arg(fromBytes(room.Name), fromBytes(room.BitV))
                           .arg(room.SecType);
        for (const ExitDef& def : kExits)
            if (const ExitRecord& exit = room.Exits[def.slot]; !exit.Absent)
                line += QString(" %1:%2/%3/%4/%5")
                            .arg(def.caption)
                            .arg(exit.DoorKind)
                            .arg(exit.KeyVNum)
                            .arg(exit.ToVNum)
                            .arg(fromBytes(exit.Keywords));
        for (const ExtraDesc& extra : room.ExtraDescs)
            line += extra.Keywords.empty() ? QString() : " +" + fromBytes(extra.Keywords);
        rooms.append(room == RoomRecord{} ? "cleared" : line);
    }
    return rooms.join("; ");
}

// The room editor on a zone's file (NewRoom without one), with the probes
// of any editor and "absent" (the shown slot's exit marks, x absent),
// "table" and "file" (roomsOf them).
struct EditorSession : KindSession<FormRoom> {
    explicit EditorSession(const std::string& file, int zone = 95, const QString& folder = {})
        : KindSession<FormRoom>(file, zone, ".wld", folder) {
        more = [this](const QString& name) -> std::optional<QString> {
            if (name != "absent")
                return recordProbe(name, roomTable(), readRooms, roomsOf);
            QString absent;
            for (const ExitRecord& exit : roomTable()[editor->currentIndex()].Exits)
                absent += exit.Absent ? "x" : "-";
            return absent;
        };
    }
    ~EditorSession() {
        delete editor.data();
        ClearRoomTable();
    }
};

} // namespace marl::test
