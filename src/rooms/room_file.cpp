#include "rooms/room_file.h"

#include "world/text_writer.h"

namespace marl {

namespace {

constexpr std::string_view kHeader = "a room header \"#<vnum>\"";
constexpr std::string_view kNextRoom = "the next room \"#<vnum>\" or the end of the file \"$\"";
constexpr std::string_view kRoomLine =
    "an exit \"D<n>\", an extra description \"E\" or the end of the room \"S\"";

void readExit(TextReader& in, RoomRecord& room, int direction, int line) {
    const int slot = exitSlotOfDirection(direction);
    if (slot < 0)
        throw FormatError(line, "an exit direction \"D0\" to \"D5\"");
    ExitRecord& exit = room.Exits[slot];
    exit.Direction = static_cast<std::int16_t>(slot);
    exit.Desc = in.readTildeText("the exit description ending in \"~\"");
    exit.Keywords = in.readTildeString("the door keywords ending in \"~\"");
    constexpr std::string_view what = "an exit line \"<door> <key> <to>\"";
    const std::string numbers = in.readLine(what);
    const int at = in.lastLineNumber();
    const auto fields = splitNumbers(numbers);
    if (fields.size() < 3)
        throw FormatError(at, std::string(what));
    exit.DoorKind = toInt16(fields[0], at, what);
    exit.KeyVNum = toInt32(fields[1], at, what);
    exit.ToVNum = toInt32(fields[2], at, what);
    exit.Absent = false;
}

} // namespace

int readRooms(std::string_view bytes, RoomTable& table) {
    TextReader in(bytes);
    table.lineEnd = in.lineEnd();
    std::string line = in.readLine(kHeader);
    int count = 0;
    while (true) {
        RoomRecord& room = table[count];
        room.VNum = parseHeader(line, in.lastLineNumber(), kHeader);
        room.Name = in.readTildeString("the room name ending in \"~\"");
        room.Desc = in.readTildeText("the room description ending in \"~\"");

        constexpr std::string_view what = "the line \"<zone> <flags> <sector>\"";
        const std::string numbers = in.readLine(what);
        const int at = in.lastLineNumber();
        const auto fields = splitFields(numbers);
        if (fields.size() < 3)
            throw FormatError(at, std::string(what));
        toInt32(fields[0], at, what);  // the zone: read and ignored
        room.BitV = std::string(fields[1]);
        room.SecType = toInt16(fields[2], at, what);

        // Exits and extra descriptions, in whatever order the file has them,
        // up to the line that ends the room.
        int extras = 0;
        while (true) {
            line = in.readLine(kRoomLine);
            const std::string_view word = trimRight(line);
            if (word.size() == 2 && word[0] == 'D') {
                const int direction = word[1] >= '0' && word[1] <= '9' ? word[1] - '0' : -1;
                readExit(in, room, direction, in.lastLineNumber());
            } else if (word == "E") {
                if (extras == kExtraDescSlots)
                    throw FormatError(in.lastLineNumber(), "at most 128 extra descriptions in a room");
                ExtraDesc& extra = room.ExtraDescs[extras++];
                extra.Keywords = in.readTildeString("the extra description keywords ending in \"~\"");
                extra.Desc = in.readTildeText("the extra description ending in \"~\"");
            } else {
                break;  // the `S` line; its contents are not checked
            }
        }
        ++count;
        line = in.readLine(kNextRoom);
        if (isEndLine(line))
            return count;
    }
}

std::string writeRooms(const RoomTable& table, int count, std::int32_t zone) {
    TextWriter out(table.lineEnd);
    const int written = count > 0 ? count : 1;
    out.reserve(static_cast<std::size_t>(written) * 512);
    for (int slot = 0; slot < written; ++slot) {
        const RoomRecord& room = table[slot];
        out.header(room.VNum);
        out.tildeString(room.Name);
        out.tildeText(room.Desc);
        out.line(std::to_string(zone) + ' ' + room.BitV + ' ' + std::to_string(room.SecType));
        for (const ExitDef& def : kExits) {
            const ExitRecord& exit = room.Exits[def.slot];
            if (exit.Absent)
                continue;
            out.line("D" + std::to_string(def.fileDirection));
            out.tildeText(exit.Desc);
            out.tildeString(exit.Keywords);
            out.line(joinNumbers(exit.DoorKind, exit.KeyVNum, exit.ToVNum));
        }
        for (const ExtraDesc& extra : room.ExtraDescs) {
            if (extra.Keywords.empty())
                break;
            out.line("E");
            out.tildeString(extra.Keywords);
            out.tildeText(extra.Desc);
        }
        out.line("S");
    }
    out.end();
    return out.take();
}

} // namespace marl
