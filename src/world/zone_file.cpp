#include "world/zone_file.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <system_error>

namespace marl {

namespace {

std::string reason(int error) {
    return error != 0 ? std::string(std::strerror(error)) : std::string("unknown error");
}

} // namespace

bool readZoneFile(const std::filesystem::path& path, std::string& bytes, std::string& error) {
    std::error_code ec;
    if (std::filesystem::is_directory(path, ec)) {
        error = reason(EISDIR);
        return false;
    }
    errno = 0;
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        error = reason(errno);
        return false;
    }
    in.seekg(0, std::ios::end);
    const std::streamoff size = in.tellg();
    in.seekg(0, std::ios::beg);
    bytes.assign(size > 0 ? static_cast<std::size_t>(size) : 0, '\0');
    if (size > 0 && !in.read(bytes.data(), size)) {
        error = reason(errno);
        return false;
    }
    return true;
}

namespace {

// A file that may not be written is not replaced.  Replacing goes through
// the directory, which would let a read-only file be swapped for a new one:
// so a file marked read-only (no write permission for anyone, as the
// platform's read-only attribute shows) is refused, and one the system would
// not open for writing is refused with the system's reason.
bool mayReplace(const std::filesystem::path& path, std::string& error) {
    std::error_code ec;
    const auto status = std::filesystem::status(path, ec);
    if (ec || !std::filesystem::exists(status))
        return true;
    constexpr auto anyWrite = std::filesystem::perms::owner_write |
                              std::filesystem::perms::group_write |
                              std::filesystem::perms::others_write;
    if ((status.permissions() & anyWrite) == std::filesystem::perms::none) {
        error = reason(EACCES);
        return false;
    }
    errno = 0;
    std::ofstream probe(path, std::ios::binary | std::ios::app); // opens, writes nothing
    if (!probe) {
        error = reason(errno);
        return false;
    }
    return true;
}

} // namespace

bool writeZoneFile(const std::filesystem::path& requested, std::string_view bytes,
                   std::string& error) {
    std::error_code ec;
    // Through a link, the file it names is replaced and the link stays.
    std::filesystem::path path = requested;
    if (std::filesystem::is_symlink(std::filesystem::symlink_status(requested, ec))) {
        path = std::filesystem::weakly_canonical(requested, ec);
        if (ec) {
            error = ec.message();
            return false;
        }
    }
    if (!mayReplace(path, error))
        return false;
    std::filesystem::path temp = path;
    temp += ".marl-new";
    {
        errno = 0;
        std::ofstream out(temp, std::ios::binary | std::ios::trunc);
        if (!out) {
            error = reason(errno);
            return false;
        }
        out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        out.close();
        if (!out) {
            error = reason(errno);
            std::filesystem::remove(temp, ec);
            return false;
        }
    }
    if (!syncFile(temp)) {
        error = reason(errno);
        std::filesystem::remove(temp, ec);
        return false;
    }
    // Keep the permissions the old file had.
    const auto status = std::filesystem::status(path, ec);
    if (!ec && std::filesystem::exists(status))
        std::filesystem::permissions(temp, status.permissions(), ec);
    std::filesystem::rename(temp, path, ec);
    if (ec) {
        error = ec.message();
        std::error_code ignored;
        std::filesystem::remove(temp, ignored);
        return false;
    }
    return true;
}

} // namespace marl

namespace marl {

std::string describeLoadFailure(std::string_view fileName, const LoadOutcome& outcome) {
    std::string text(fileName);
    if (outcome.line > 0)
        text += ", line " + std::to_string(outcome.line);
    return text + ": " + outcome.problem;
}

} // namespace marl
