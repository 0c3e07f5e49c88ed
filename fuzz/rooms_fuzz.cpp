// libFuzzer target: arbitrary bytes as a world file (see round_trip.h).
#include "rooms/room_file.h"
#include "round_trip.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace marl;
    // Every room is written with the zone of its file; the reader ignores it.
    auto write = [](const RoomTable& table, int count) { return writeRooms(table, count, 30); };
    return fuzz::roundTrip<RoomTable>(data, size, readRooms, write);
}
