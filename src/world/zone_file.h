#pragma once
// Whole zone files in and out.  A writer never leaves a half-written file:
// the text goes to a new file beside the old one, which is replaced only when
// the new one is completely written and flushed.

#include <filesystem>
#include <string>
#include <string_view>

#include "world/text_reader.h"

namespace marl {

// Reads the whole file as bytes.  On failure `error` holds the system's reason.
bool readZoneFile(const std::filesystem::path& path, std::string& bytes, std::string& error);

// Replaces the file with `bytes` (through a link: the file it names).  A file
// marked read-only, or one the system will not open for writing, is refused.
// On failure the old file is as it was and `error` holds the system's reason.
bool writeZoneFile(const std::filesystem::path& path, std::string_view bytes, std::string& error);

// Pushes a written file to the disk (the one place for the platform's call).
bool syncFile(const std::filesystem::path& path);

} // namespace marl

namespace marl {

// The outcome of reading a zone file into its table.
struct LoadOutcome {
    bool ok = false;
    int count = 0;         // records read
    int line = 0;          // where the reading stopped, 0 when the file could not be read at all
    std::string problem;   // "expected ..." or the system's reason
};

// Reads `path` into `table` with `read(bytes, table) -> count`.  The table is
// cleared first, and cleared again on failure, so a partly read table is
// never shown as the zone.
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
    } catch (const FormatError& error) {
        table.clear();
        outcome.line = error.line();
        outcome.problem = "expected " + error.expected();
    }
    return outcome;
}

// "30.wld, line 412: expected ..." or "30.wld: No such file or directory".
std::string describeLoadFailure(std::string_view fileName, const LoadOutcome& outcome);

} // namespace marl
