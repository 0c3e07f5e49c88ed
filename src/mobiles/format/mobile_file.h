#pragma once
// The mobile file (.mob): mobiles read from and written to the server's text.

#include <string>
#include <string_view>

#include "mobiles/format/mobile_record.h"
#include "world/record_stream.h"

namespace marl {

// Reads a whole mobile file into a cleared table, slot 0 upward, and returns
// the number of mobiles read.  Throws FormatError, naming the line and what
// was expected there, for a file the server could not read either; the table
// then holds the mobiles read so far (loadZoneTable clears it again).
int readMobiles(std::string_view bytes, MobileTable& table);
// The same records, each handed on as it is read.
int readMobilesEach(std::string_view bytes, RecordStream<MobileRecord>& stream);

// The text of a mobile file holding slots 0 to count - 1, in the table's line
// ends.  A mobile read and not stored since is written as it was read.  For
// any other, an empty action or affect flag text is written as `0`, and
// extended values are followed by their block's
// `E` line whatever the type letter says: without it the next record's
// lines would be read as part of the block.
std::string writeMobiles(const MobileTable& table, int count);

} // namespace marl
