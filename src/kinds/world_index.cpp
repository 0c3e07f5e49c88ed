#include "kinds/world_index.h"

#include <algorithm>
#include <system_error>

#include "world/zone_file.h"

namespace marl {

namespace {

// The blanks that end a word for the server's reading of an index.
bool isSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r';
}

// Calls `word(start, length, line)` for each word up to and including the
// first that begins with `$`.
template <typename Word> void forEachWord(std::string_view bytes, Word word) {
    int line = 1;
    for (std::size_t at = 0; at < bytes.size();) {
        if (isSpace(bytes[at])) {
            line += bytes[at++] == '\n' ? 1 : 0;
            continue;
        }
        const std::size_t start = at;
        while (at < bytes.size() && !isSpace(bytes[at]))
            ++at;
        if (!word(start, at - start, line))
            return;
    }
}

} // namespace

bool IndexListing::lists(std::string_view name) const {
    return std::any_of(entries.begin(), entries.end(),
                       [&](const IndexEntry& entry) { return entry.name == name; });
}

IndexListing readIndex(std::string_view bytes) {
    IndexListing listing;
    forEachWord(bytes, [&](std::size_t start, std::size_t length, int line) {
        if (bytes[start] == '$') {
            listing.endLine = line;
            return false;
        }
        listing.entries.push_back({std::string(bytes.substr(start, length)), line});
        return true;
    });
    return listing;
}

std::string addToIndex(std::string_view bytes, std::string_view name) {
    const std::size_t lf = bytes.find('\n');
    const std::string_view eol = lf != std::string_view::npos && lf > 0 && bytes[lf - 1] == '\r'
                                     ? std::string_view("\r\n")
                                     : std::string_view("\n");
    std::size_t end = std::string_view::npos;
    forEachWord(bytes, [&](std::size_t start, std::size_t, int) {
        if (bytes[start] != '$')
            return true;
        end = start;
        return false;
    });
    std::string added;
    added.reserve(bytes.size() + name.size() + 2 * eol.size() + 1);
    if (end != std::string_view::npos) {
        added.append(bytes.substr(0, end)).append(name).append(eol).append(bytes.substr(end));
        return added;
    }
    added.append(bytes);
    if (!added.empty() && added.back() != '\n')
        added.append(eol);
    added.append(name).append(eol).append("$").append(eol);
    return added;
}

std::filesystem::path indexBeside(const std::filesystem::path& zoneFile) {
    return zoneFile.parent_path() / "index";
}

IndexState indexStateOf(const std::filesystem::path& zoneFile) {
    std::string bytes, error;
    std::error_code ec;
    const std::filesystem::path index = indexBeside(zoneFile);
    if (!std::filesystem::is_regular_file(index, ec) || !readZoneFile(index, bytes, error))
        return IndexState::NoIndex;
    return readIndex(bytes).lists(zoneFile.filename().string()) ? IndexState::Listed
                                                                : IndexState::NotListed;
}

std::string indexQuestion(std::string_view fileName) {
    return "Add " + std::string(fileName) + " to the world's index, so the server loads it?";
}

bool addToIndexBeside(const std::filesystem::path& zoneFile, std::string& error) {
    const std::filesystem::path index = indexBeside(zoneFile);
    std::string bytes;
    if (!readZoneFile(index, bytes, error))
        return false;
    const std::string name = zoneFile.filename().string();
    if (readIndex(bytes).lists(name))
        return true;
    return writeZoneFile(index, addToIndex(bytes, name), error);
}

} // namespace marl
