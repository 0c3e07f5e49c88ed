#pragma once
// Zone files are named by the zone number and the kind's extension: 30.wld.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace marl {

// The zone of a chosen file: the text before the first `.` of its name, which
// must be a number (`030.wld` is zone 30, `7.old.wld` zone 7, `castle.wld`
// none).
std::optional<std::int32_t> zoneFromFileName(std::string_view fileName);

// `30.wld` for zone 30 and extension ".wld".
std::string zoneFileName(std::int32_t zone, std::string_view extension);

} // namespace marl
