#include "rooms/format/room_file.h"

#include "world/record_file.h"

namespace marl {

namespace {

constexpr std::string_view kHeader = "a room header \"#<vnum>\"";
constexpr std::string_view kNextRoom = "the next room \"#<vnum>\" or the end of the file \"$\"";
constexpr std::string_view kNumbersLine = "the line \"<zone> <flags> <sector>\"";
constexpr std::string_view kRoomLine =
    "an exit \"D<n>\", an extra description \"E\" or the end of the room \"S\"";
constexpr std::string_view kExitLine = "an exit line \"<door> <key> <to>\"";

// The server takes the number after the `D` as `atoi` does: `D1`, `D 1`,
// `D01` and `Dx` (0) all name a direction.
void readExit(TextReader& in, RoomRecord& room, std::string_view rest) {
    const std::optional<std::int32_t> direction = atoiValue(rest);
    const int slot = direction && *direction >= 0 && *direction < kExitSlots
                         ? exitSlotOfDirection(*direction)
                         : -1;
    if (slot < 0)
        throw FormatError(in.lastLineNumber(), "an exit direction \"D0\" to \"D5\"");
    ExitRecord& exit = room.Exits[static_cast<std::size_t>(slot)];
    exit.Direction = static_cast<std::int16_t>(slot);
    in.readTildeText("the exit description ending in \"~\"", exit.Desc);
    in.readTildeString("the door keywords ending in \"~\"", exit.Keywords);
    const FieldLine numbers(in, "ddd", kExitLine);
    exit.DoorKind = numbers.int16(0);
    exit.KeyVNum = numbers.int32(1);
    exit.ToVNum = numbers.int32(2);
    exit.Absent = false;
}

void readRoom(TextReader& in, RoomRecord& room, std::string_view& line) {
    in.readTildeString("the room name ending in \"~\"", room.Name);
    in.readTildeText("the room description ending in \"~\"", room.Desc);
    const FieldLine numbers(in, "dsd", kNumbersLine);
    numbers.int32(0); // the zone: read and ignored
    room.BitV = numbers.text(1);
    room.SecType = numbers.int16(2);

    // Exits and extra descriptions, in whatever order the file has them,
    // up to the line that ends the room.  The server looks at the first
    // character alone: `D 1`, `Extra` and `Stop` read as `D1`, `E` and `S`.
    while (true) {
        line = in.nextLine(kRoomLine);
        if (line.front() == 'D')
            readExit(in, room, std::string_view(line).substr(1));
        else if (line.front() == 'E')
            readExtraDesc(in, room.ExtraDescs, "a room");
        else if (line.front() == 'S')
            break;
        else
            throw FormatError(in.lastLineNumber(), std::string(kRoomLine));
    }
    line = in.nextLine(kNextRoom);
}

} // namespace

int readRooms(std::string_view bytes, RoomTable& table) {
    return readRecords(bytes, table, kHeader, kNextRoom, readRoom);
}

int readRoomsEach(std::string_view bytes, RecordStream<RoomRecord>& stream) {
    return readRecords(bytes, stream, kHeader, kNextRoom, readRoom);
}

std::string writeRooms(const RoomTable& table, int count, std::int32_t zone) {
    return writeRecords(table, count, 512, [&](TextWriter& out, const RoomRecord& room) {
        out.tildeString(room.Name);
        out.tildeText(room.Desc);
        // An empty flag text would leave two blanks, which the server reads as one.
        out.number(zone).put(' ').put(orZero(room.BitV)).put(' ').number(room.SecType).endLine();
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
