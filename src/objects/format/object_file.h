#pragma once
// The object file (.obj): objects read from and written to the server's text.

#include <string>
#include <string_view>

#include "objects/format/object_record.h"
#include "world/record_stream.h"

namespace marl {

// Reads a whole object file into a cleared table, slot 0 upward, and returns
// the number of objects read.  Throws FormatError, naming the line and what
// was expected there, for a file the server could not read either; the table
// then holds the objects read so far (loadZoneTable clears it again).
int readObjects(std::string_view bytes, ObjectTable& table);
// The same records, each handed on as it is read.
int readObjectsEach(std::string_view bytes, RecordStream<ObjectRecord>& stream);

// The text of an object file holding slots 0 to count - 1, in the table's
// line ends.  An object read and not stored since is written as it was
// read; any other with its extra descriptions before its affects, every
// entry in use of both lists.
std::string writeObjects(const ObjectTable& table, int count);

} // namespace marl
