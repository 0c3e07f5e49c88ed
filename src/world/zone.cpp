#include "world/zone.h"

#include "world/text_reader.h"

namespace marl {

std::optional<std::int32_t> zoneFromFileName(std::string_view fileName) {
    const std::string_view stem = fileName.substr(0, fileName.find('.'));
    if (stem.empty() || stem.front() == '+')
        return std::nullopt;
    std::int64_t zone = 0;
    if (!parseInt(stem, INT32_MIN, INT32_MAX, zone))
        return std::nullopt;
    return static_cast<std::int32_t>(zone);
}

std::string zoneFileName(std::int32_t zone, std::string_view extension) {
    return std::to_string(zone) + std::string(extension);
}

} // namespace marl
