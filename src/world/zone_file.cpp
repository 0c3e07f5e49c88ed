#include "world/zone_file.h"

#include <atomic>
#include <cerrno>
#include <cstring>

#include "world/platform_file.h"

namespace fs = std::filesystem;

namespace marl {

namespace platform {

std::string reason(int error) {
    return error != 0 ? std::string(std::strerror(error)) : std::string("unknown error");
}

std::string notRegularFile(fs::file_type type) {
    switch (type) {
    case fs::file_type::directory:
        return reason(EISDIR);
    case fs::file_type::fifo:
        return "not a regular file but a named pipe (FIFO)";
    case fs::file_type::block:
    case fs::file_type::character:
        return "not a regular file but a device";
    case fs::file_type::socket:
        return "not a regular file but a socket";
    default:
        return "not a regular file";
    }
}

namespace {
std::atomic<SaveFault> saveFault{nullptr};
} // namespace

int injectedFault(SaveStep step) {
    const SaveFault fault = saveFault.load();
    return fault ? fault(step) : 0;
}

} // namespace platform

void setSaveFault(SaveFault fault) {
    platform::saveFault.store(fault);
}

bool readZoneFile(const fs::path& path, std::string& bytes, std::string& error,
                  bool listedRegular) {
    return platform::readRegularFile(path, bytes, error, listedRegular);
}

namespace {

// The file a path names in the end: links are followed one by one, each
// relative one from its own folder, also to a name where nothing is yet.
bool followLinks(const fs::path& requested, fs::path& target, std::string& error) {
    constexpr int kMaxLinks = 40; // as many as the system itself follows
    target = requested;
    for (int hop = 0; hop <= kMaxLinks; ++hop) {
        std::error_code ec;
        if (!fs::is_symlink(fs::symlink_status(target, ec)))
            return true;
        const fs::path next = fs::read_symlink(target, ec);
        if (ec) {
            error = ec.message();
            return false;
        }
        target = next.is_absolute() ? next : target.parent_path() / next;
    }
    error = platform::reason(ELOOP);
    return false;
}

} // namespace

bool writeZoneFile(const fs::path& requested, std::string_view bytes, std::string& error) {
    fs::path target;
    if (!followLinks(requested, target, error))
        return false;
    std::error_code ec;
    const fs::file_status status = fs::symlink_status(target, ec);
    const bool exists = status.type() != fs::file_type::not_found;
    if (ec && exists) {
        error = ec.message();
        return false;
    }
    if (exists) {
        if (!fs::is_regular_file(status)) {
            error = platform::notRegularFile(status.type());
            return false;
        }
        // Renaming goes through the folder, which would let a file marked
        // read-only (no write permission for anyone, as the platform's
        // read-only attribute shows) be swapped for a new one: refuse it.
        constexpr auto anyWrite =
            fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
        if ((status.permissions() & anyWrite) == fs::perms::none) {
            error = platform::reason(EACCES);
            return false;
        }
    }
    return platform::replaceFile(target, exists, bytes, error);
}

} // namespace marl

namespace marl {

std::string describeLoadFailure(std::string_view fileName, const LoadOutcome& outcome) {
    std::string text(fileName);
    if (outcome.line > 0)
        text += ", line " + std::to_string(outcome.line);
    return text + ": " + outcome.problem;
}

std::string describeLoadNotes(std::string_view fileName, const LoadOutcome& outcome) {
    constexpr std::size_t kShown = 10;
    std::string text;
    for (std::size_t i = 0; i < outcome.notes.size() && i < kShown; ++i)
        text += std::string(fileName) + ", line " + std::to_string(outcome.notes[i].line) + ": " +
                outcome.notes[i].text + '\n';
    if (outcome.notes.size() > kShown)
        text += "and " + std::to_string(outcome.notes.size() - kShown) + " more\n";
    if (!text.empty())
        text.pop_back();
    return text;
}

} // namespace marl
