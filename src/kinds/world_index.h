#pragma once
// The `index` file of each folder of a server's world (wld/, mob/, obj/,
// zon/, shp/): the names of the files the server loads, in the order it
// loads them, up to a word beginning with `$`.  The server reads it word by
// word, so names may share a line, and any blanks (CR included) separate
// them.  Standard C++ only.

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace marl {

struct IndexEntry {
    std::string name;
    int line;
};

struct IndexListing {
    std::vector<IndexEntry> entries; // in the order the server loads them
    // The line of the `$` word, or 0 when there is none: the server then
    // reads the last name again and again and never finishes its boot.
    int endLine = 0;
    bool lists(std::string_view name) const;
};

IndexListing readIndex(std::string_view bytes);

// The index with `name` added on a line of its own just before its `$`
// word, every other byte kept, in the index's own line ends.  An index
// without a `$` gets the name and a `$` line after its last line.
std::string addToIndex(std::string_view bytes, std::string_view name);

// The index the server would load `zoneFile` through: the file `index` in
// its folder, when there is one.
std::filesystem::path indexBeside(const std::filesystem::path& zoneFile);

// What the index beside a zone file says of it.
enum class IndexState {
    NoIndex,   // the folder has no index (or it cannot be read): nothing to ask
    Listed,    // the server loads it
    NotListed, // the server never loads it
};
IndexState indexStateOf(const std::filesystem::path& zoneFile);

// What a Save that created a file the index does not list asks:
// "Add 40.wld to the world's index, so the server loads it?"
std::string indexQuestion(std::string_view fileName);

// Adds the zone file's name to the index beside it, unless the index lists
// it already (then the index is not written).  False with `error` when the
// index cannot be read or written; the index is then as it was.
bool addToIndexBeside(const std::filesystem::path& zoneFile, std::string& error);

} // namespace marl
