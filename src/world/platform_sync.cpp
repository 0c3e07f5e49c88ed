// The one place that speaks to the platform's file API directly.
#include "world/zone_file.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace marl {

bool syncFile(const std::filesystem::path& path) {
#ifdef _WIN32
    const int fd = _wopen(path.c_str(), _O_RDWR | _O_BINARY);
    if (fd < 0)
        return false;
    const bool ok = _commit(fd) == 0;
    _close(fd);
    return ok;
#else
    const int fd = ::open(path.c_str(), O_RDONLY);
    if (fd < 0)
        return false;
    const bool ok = ::fsync(fd) == 0;
    ::close(fd);
    return ok;
#endif
}

} // namespace marl
