// libFuzzer target: arbitrary bytes as a object file (see round_trip.h).
#include "objects/object_file.h"
#include "round_trip.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace marl;
    return fuzz::roundTrip<ObjectTable>(data, size, readObjects, writeObjects);
}
