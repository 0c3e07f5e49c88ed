#pragma once
// Whole zone files in and out.  A writer never leaves a half-written file:
// the text goes to a new file beside the old one, which is replaced only when
// the new one is completely written and flushed.

#include <cstddef>
#include <filesystem>
#include <new>
#include <string>
#include <string_view>
#include <vector>

#include "world/text_reader.h"

namespace marl {

// Far above the largest zone file: a file larger than this is refused before
// it is read, and one that grows past it while read is refused too.
inline constexpr std::size_t kMaxZoneFileBytes = std::size_t(64) << 20;

// Reads the whole file as bytes.  Only a regular file is read: a folder, a
// named pipe or a device is refused at once, never waited on.  On failure
// `error` says why (the system's reason, or what the file is instead).
// `listedRegular`: the folder's listing has just said the path is a regular
// file, so it is not looked at once more before it is opened (it still is
// once open, and opening never waits).
bool readZoneFile(const std::filesystem::path& path, std::string& bytes, std::string& error,
                  bool listedRegular = false);

// Replaces the file with `bytes`.  The text goes to a new file in the same
// folder, created under an unpredictable name that no existing file or link
// can stand in for; it gets the old file's mode and, where the system lets
// it, its owner and group; it is flushed to the disk, renamed over the old
// file, and the folder is flushed so that the rename survives a power cut.
// Through a link (even one naming a file not yet there) the file it names is
// written and the link stays.  A file marked read-only, one the system will
// not open for writing, and anything that is not a regular file are refused.
// On failure the old file is as it was, no new file is left, and `error`
// says why.
bool writeZoneFile(const std::filesystem::path& path, std::string_view bytes, std::string& error);

// Where a test can make a save fail as a failing disk would: before each
// step the hook is asked, and a nonzero answer is the errno the step then
// fails with (ENOSPC for a full disk, EIO for a failing flush).
enum class SaveStep { Write, Sync, Rename };
using SaveFault = int (*)(SaveStep step);
void setSaveFault(SaveFault fault); // nullptr: saves run as the system lets them

} // namespace marl

namespace marl {

// The outcome of reading a zone file into its table.
struct LoadOutcome {
    bool ok = false;
    int count = 0;       // records read
    int line = 0;        // where the reading stopped, 0 when the file could not be read at all
    std::string problem; // "expected ...", what is wrong there, or the system's reason
    // What a file that was read holds beyond what the editor can show.
    std::vector<TextReader::Note> notes;
};

// Reads `path` into `table` with `read(bytes, table) -> count`.  The table is
// cleared first, and cleared again on failure, so a partly read table is
// never shown as the zone.  Memory running out while the records are made
// is a failure like any other.
template <typename Table, typename Reader>
LoadOutcome loadZoneTable(const std::filesystem::path& path, Table& table, Reader read) {
    LoadOutcome outcome;
    table.clear();
    std::string bytes;
    if (!readZoneFile(path, bytes, outcome.problem))
        return outcome;
    try {
        outcome.count = read(bytes, table);
        outcome.ok = true;
        outcome.notes = table.notes;
    } catch (const FormatError& error) {
        table.clear();
        outcome.line = error.line();
        outcome.problem = error.problem();
    } catch (const std::bad_alloc&) {
        table.clear();
        outcome.count = 0;
        outcome.problem = "there is not enough memory to hold its records";
    }
    return outcome;
}

// "30.wld, line 412: expected ..." or "30.wld: No such file or directory".
std::string describeLoadFailure(std::string_view fileName, const LoadOutcome& outcome);

// The notes of a file read, one a line ("30.wld, line 12: ..."), the first
// ten and how many more; empty when there are none.
std::string describeLoadNotes(std::string_view fileName, const LoadOutcome& outcome);

} // namespace marl
