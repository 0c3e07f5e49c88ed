#pragma once
// What the server refuses or logs of an object, one check per function, for
// the object windows and marl-check alike.  The value checks are those the
// server runs on every object it boots, which it logs and boots on.

#include "objects/format/object_record.h"
#include "world/server_limits.h"

namespace marl {

// The server's most affects of an object; a seventh stops its boot.
inline constexpr int kServerAffects = 6;

// More affects than the server takes.
void checkAffectCount(Findings& found, const ObjectRecord& object);
// Each text past the server's limit, written in `lineEnd`.
void checkObjectTexts(Findings& found, const ObjectRecord& object, LineEnd lineEnd);
// A negative weight (a drink container or fountain lighter than what it
// holds is first made heavier, as the server does) or rent per day.
void checkWeightAndRent(Findings& found, const ObjectRecord& object);
// Effect or wear flags beyond those the server names.
void checkFlagBits(Findings& found, const ObjectRecord& object);
// A drink container whose last alias is not the name of a drink.
void checkDrinkAlias(Findings& found, const ObjectRecord& object);
// A drink container or fountain holding more than its capacity.
void checkDrinkContents(Findings& found, const ObjectRecord& object);
// A scroll, potion, wand or staff of a level outside 0 to 34 or with a
// spell the server does not have (-1 is no spell).
void checkMagicValues(Findings& found, const ObjectRecord& object);
// A wand or staff with more charges left than its maximum.
void checkCharges(Findings& found, const ObjectRecord& object);

// The checks the server logs and boots on, in the order it runs them.
Findings loggedObjectProblems(const ObjectRecord& object);
// Every check: what stops the boot, then what is only logged.
Findings objectProblems(const ObjectRecord& object, LineEnd lineEnd);

} // namespace marl
