#pragma once
// What the server refuses of a mobile: a text past its limit.

#include "mobiles/format/mobile_record.h"
#include "world/server_limits.h"

namespace marl {

// Each text of the mobile past the server's limit, written in `lineEnd`.
void checkMobileTexts(Findings& found, const MobileRecord& mobile, LineEnd lineEnd);

} // namespace marl
