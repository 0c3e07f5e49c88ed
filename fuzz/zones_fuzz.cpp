// libFuzzer target: arbitrary bytes as a zone's reset file.  What reads is
// written back byte for byte; then the header (when Save takes its name) and
// every command are stored as from a window (their bytes gone) and written field by field, which
// reads back to the same fields and is written again byte for byte.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "zones/format/zone_reset_file.h"

namespace {

[[noreturn]] void finding(const char* what, const std::string& written) {
    std::fprintf(stderr, "zone round trip: %s; the written file:\n%s\n", what, written.c_str());
    std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace marl;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    ZoneRecord zone;
    int count = 0;
    try {
        count = readZone(bytes, zone);
    } catch (const FormatError&) {
        return 0; // refused with a message
    }
    if (writeZone(zone) != bytes)
        finding("not written back byte for byte", writeZone(zone));
    if (checkName(zone.Name).empty()) // else the window's Save refuses it
        zone.Source.clear();
    for (ZoneCommand& command : zone.Commands)
        command.Source.clear();
    const std::string written = writeZone(zone);
    ZoneRecord again;
    try {
        if (readZone(written, again) != count)
            finding("another number of commands read back", written);
    } catch (const FormatError& error) {
        std::fprintf(stderr, "line %d: %s\n", error.line(), error.problem().c_str());
        finding("the written file does not read back", written);
    }
    if (!sameFields(zone, again))
        finding("the commands read back with other fields", written);
    if (writeZone(again) != written)
        finding("written again, the file differs", written);
    return 0;
}
