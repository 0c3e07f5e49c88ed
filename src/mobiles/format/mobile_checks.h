#pragma once
// What the server refuses or logs of a mobile: a text past its limit, and
// what it logs of its flags and extended block as it boots.

#include "mobiles/format/mobile_record.h"
#include "world/server_limits.h"

namespace marl {

// Each text of the mobile past the server's limit, written in `lineEnd`.
void checkMobileTexts(Findings& found, const MobileRecord& mobile, LineEnd lineEnd);
// The flags the server logs: the bit it reserves for itself (and clears),
// action or affect bits beyond those it names, and Aggressive together with
// an aggressive-to-alignment flag (which it then ignores).
void checkMobileFlags(Findings& found, const MobileRecord& mobile);
// Each line of the extended block that sets nothing: a keyword the server
// does not know, or no colon.
void checkExtendedKeywords(Findings& found, const MobileRecord& mobile);

} // namespace marl
