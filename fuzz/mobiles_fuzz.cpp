// libFuzzer target: arbitrary bytes as a mobile file (see round_trip.h).
#include "mobiles/mobile_file.h"
#include "round_trip.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace marl;
    return fuzz::roundTrip<MobileTable>(data, size, readMobiles, writeMobiles);
}
