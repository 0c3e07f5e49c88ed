#include "rooms/room_file.h"

#include "world/record_file.h"

namespace marl {

namespace {

constexpr std::string_view kHeader = "a room header \"#<vnum>\"";
constexpr std::string_view kNextRoom = "the next room \"#<vnum>\" or the end of the file \"$\"";
constexpr std::string_view kNumbersLine = "the line \"<zone> <flags> <sector>\"";
constexpr std::string_view kRoomLine =
    "an exit \"D<n>\", an extra description \"E\" or the end of the room \"S\"";
constexpr std::string_view kExitLine = "an exit line \"<door> <key> <to>\"";

void readExit(TextReader& in, RoomRecord& room, char direction) {
    const int slot =
        direction >= '0' && direction <= '9' ? exitSlotOfDirection(direction - '0') : -1;
    if (slot < 0)
        throw FormatError(in.lastLineNumber(), "an exit direction \"D0\" to \"D5\"");
    ExitRecord& exit = room.Exits[static_cast<std::size_t>(slot)];
    exit.Direction = static_cast<std::int16_t>(slot);
    in.readTildeText("the exit description ending in \"~\"", exit.Desc);
    in.readTildeString("the door keywords ending in \"~\"", exit.Keywords);
    const FieldLine numbers(in, 3, kExitLine, FieldLine::Numbers);
    exit.DoorKind = numbers.int16(0);
    exit.KeyVNum = numbers.int32(1);
    exit.ToVNum = numbers.int32(2);
    exit.Absent = false;
}

void readRoom(TextReader& in, RoomRecord& room, std::string& line) {
    in.readTildeString("the room name ending in \"~\"", room.Name);
    in.readTildeText("the room description ending in \"~\"", room.Desc);
    const FieldLine numbers(in, 3, kNumbersLine, FieldLine::FlagText);
    numbers.int32(0); // the zone: read and ignored
    room.BitV = numbers.text(1);
    room.SecType = numbers.int16(2);

    // Exits and extra descriptions, in whatever order the file has them,
    // up to the line that ends the room; its contents are not checked.
    while (true) {
        line = in.readLine(kRoomLine);
        const std::string_view word = trimRight(line);
        if (word.size() == 2 && word[0] == 'D')
            readExit(in, room, word[1]);
        else if (word == "E")
            readExtraDesc(in, room.ExtraDescs, "a room");
        else
            break;
    }
    line = in.readLine(kNextRoom);
}

} // namespace

int readRooms(std::string_view bytes, RoomTable& table) {
    return readRecords(bytes, table, kHeader, kNextRoom, readRoom);
}

std::string writeRooms(const RoomTable& table, int count, std::int32_t zone) {
    return writeRecords(table, count, 512, [&](TextWriter& out, const RoomRecord& room) {
        out.tildeString(room.Name);
        out.tildeText(room.Desc);
        out.number(zone).put(' ').put(room.BitV).put(' ').number(room.SecType).endLine();
        // By direction number, as the server's own files list them.
        for (int direction = 0; direction < kExitSlots; ++direction) {
            const ExitRecord& exit =
                room.Exits[static_cast<std::size_t>(exitSlotOfDirection(direction))];
            if (exit.Absent)
                continue;
            out.put('D').number(direction).endLine();
            out.tildeText(exit.Desc);
            out.tildeString(exit.Keywords);
            out.numbers(exit.DoorKind, exit.KeyVNum, exit.ToVNum);
        }
        writeExtraDescs(out, room.ExtraDescs);
        out.line("S");
    });
}

} // namespace marl
