// Listing a folder: every name it holds, and which name a regular file.  A
// world is listed at every check, so on POSIX systems the listing comes
// straight from the system, which says what most entries are without a
// further call; elsewhere from the file system library.
#include "world/platform_file.h"

#ifndef _WIN32
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#endif

namespace fs = std::filesystem;

namespace marl::platform {

#ifdef _WIN32

bool folderEntries(const fs::path& folder, std::vector<FolderEntry>& entries) {
    std::error_code ec;
    fs::directory_iterator it(folder, ec);
    for (const fs::directory_iterator end; !ec && it != end; it.increment(ec))
        entries.push_back({it->path().filename().string(), it->is_regular_file(ec)});
    return !ec;
}

#else

bool folderEntries(const fs::path& folder, std::vector<FolderEntry>& entries) {
    DIR* dir = ::opendir(folder.c_str());
    if (!dir)
        return false;
    while (const dirent* entry = ::readdir(dir)) {
        const std::string_view name = entry->d_name;
        if (name == "." || name == "..")
            continue;
        bool regular = entry->d_type == DT_REG;
        if (entry->d_type == DT_LNK || entry->d_type == DT_UNKNOWN) {
            struct stat info {}; // what a link names, or a file system that does not say
            regular = ::fstatat(::dirfd(dir), entry->d_name, &info, 0) == 0 && S_ISREG(info.st_mode);
        }
        entries.push_back({std::string(name), regular});
    }
    ::closedir(dir);
    return true;
}

#endif

} // namespace marl::platform
