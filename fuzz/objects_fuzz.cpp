// libFuzzer target: arbitrary bytes as a object file (see round_trip.h).
#include "round_trip.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return marl::fuzz::roundTrip<marl::ObjectKind>(data, size);
}
