#include "zones/zone_document.h"

#include <algorithm>

#include "world/zone_file.h"
#include "zones/format/zone_reset_file.h"

namespace marl {

void ZoneDocument::started(bool opened) {
    if (opened)
        return;
    // A new zone's rooms are its number's hundred.
    zone_ = ZoneRecord{};
    zone_.Number = zoneNumber();
    zone_.Bottom = zoneNumber() * 100;
    zone_.Top = zoneNumber() * 100 + 99;
    zone_.Lifespan = 30;
    zone_.ResetMode = 2;
}

void ZoneDocument::placeLines() {
    const auto lines = [](const std::string& text) {
        return static_cast<int>(std::count(text.begin(), text.end(), '\n'));
    };
    const int header = zone_.Source.empty() ? lines(zone_.Leader) + 3 : lines(zone_.Source);
    zone_.numbersLine = header;
    zone_.firstCommandLine = header + 1;
}

std::string ZoneDocument::writeText() {
    return writeZone(zone_);
}

bool ZoneDocument::readBack(std::string& error) {
    std::string bytes;
    LoadOutcome outcome;
    if (readZoneFile(path(), bytes, outcome.problem)) {
        ZoneRecord fresh;
        try {
            outcome.count = readZone(bytes, fresh);
            zone_ = std::move(fresh);
            return true;
        } catch (const FormatError& failure) {
            outcome.line = failure.line();
            outcome.problem = failure.problem();
        }
    }
    error = describeLoadFailure(fileName(), outcome);
    return false;
}

} // namespace marl
