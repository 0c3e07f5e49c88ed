#pragma once
// The platform's file calls behind reading and safely replacing zone files
// (platform_sync.cpp), listing a folder (platform_folder.cpp), and the words
// they use for what a path names.

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "world/zone_file.h"

namespace marl::platform {

// What a path that is not a regular file names, as the refusal says it:
// "Is a directory", "not a regular file but a named pipe (FIFO)".
std::string notRegularFile(std::filesystem::file_type type);

// The system's reason for an errno value.
std::string reason(int error);

// Reads a regular file whole; anything else is refused before it is opened
// (unless the folder's listing has just said it is `listedRegular`), and
// opened so that it can never block.
bool readRegularFile(const std::filesystem::path& path, std::string& bytes, std::string& error,
                     bool listedRegular = false);

// Writes `bytes` to a new file beside `target` (which is no link) and renames
// it over `target`, as `writeZoneFile` describes.  `exists` says whether
// `target` is there to be replaced (it is then a regular file).
bool replaceFile(const std::filesystem::path& target, bool exists, std::string_view bytes,
                 std::string& error);

// What a folder holds: each name in it (not "." or ".."), and whether it is
// a regular file, or a link to one.  False when the folder cannot be read.
struct FolderEntry {
    std::string name;
    bool regular = false;
};
bool folderEntries(const std::filesystem::path& folder, std::vector<FolderEntry>& entries);

// The hook of `setSaveFault`: the errno a step is to fail with, or 0.
int injectedFault(SaveStep step);

} // namespace marl::platform
