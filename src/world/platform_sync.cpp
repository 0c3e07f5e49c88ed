// The one place that speaks to the platform's file API directly: reading a
// regular file without ever waiting on a pipe or device, and replacing a file
// through a new one beside it.
#include "world/platform_file.h"

#include <algorithm>
#include <cerrno>
#include <random>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace fs = std::filesystem;

namespace marl::platform {

namespace {

bool fail(std::string& error, int code) {
    error = reason(code);
    return false;
}

// A name no one can guess ahead of the save: a hidden file beside the target,
// `.30.wld.marl-` and twelve random letters or digits.
fs::path tempName(const fs::path& target) {
    static constexpr char kChars[] = "abcdefghijklmnopqrstuvwxyz0123456789";
    thread_local std::mt19937_64 random{std::random_device{}()};
    std::string suffix(12, 'x');
    for (char& c : suffix)
        c = kChars[random() % (sizeof kChars - 1)];
    return target.parent_path() / ("." + target.filename().string() + ".marl-" + suffix);
}

#ifndef _WIN32

fs::file_type typeOf(mode_t mode) {
    if (S_ISREG(mode))
        return fs::file_type::regular;
    if (S_ISDIR(mode))
        return fs::file_type::directory;
    if (S_ISFIFO(mode))
        return fs::file_type::fifo;
    if (S_ISCHR(mode))
        return fs::file_type::character;
    if (S_ISBLK(mode))
        return fs::file_type::block;
    if (S_ISSOCK(mode))
        return fs::file_type::socket;
    return fs::file_type::unknown;
}

bool refuseNotRegular(const struct stat& st, std::string& error) {
    if (S_ISREG(st.st_mode))
        return false;
    error = notRegularFile(typeOf(st.st_mode));
    return true;
}

// The mode a new file gets from the process's file-creation mask.
mode_t newFileMode() {
    static const mode_t mask = [] {
        const mode_t old = ::umask(077);
        ::umask(old);
        return old;
    }();
    return 0666 & ~mask;
}

bool writeAll(int fd, std::string_view bytes, std::string& error) {
    if (const int fault = injectedFault(SaveStep::Write))
        return fail(error, fault);
    std::size_t done = 0;
    while (done < bytes.size()) {
        const std::size_t chunk = std::min<std::size_t>(bytes.size() - done, 1 << 30);
        const ssize_t n = ::write(fd, bytes.data() + done, chunk);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return fail(error, n < 0 ? errno : EIO);
        done += static_cast<std::size_t>(n);
    }
    return true;
}

// The old file's owner, group and mode on the new one.  Only the owner's
// change may be refused (a builder cannot give a file away): the group is
// then kept where the builder belongs to it.
bool keepOwnerAndMode(int fd, const struct stat* old, std::string& error) {
    if (old && (old->st_uid != ::geteuid() || old->st_gid != ::getegid()) &&
        ::fchown(fd, old->st_uid, old->st_gid) != 0) {
        if (errno != EPERM)
            return fail(error, errno);
        if (::fchown(fd, static_cast<uid_t>(-1), old->st_gid) != 0) {
            // not a member of the file's group: the builder's own group stays
        }
    }
    const mode_t mode = old ? (old->st_mode & 07777) : newFileMode();
    if (::fchmod(fd, mode) != 0)
        return fail(error, errno);
    return true;
}

void syncFolder(const fs::path& target) {
    const fs::path folder = target.parent_path().empty() ? fs::path(".") : target.parent_path();
    const int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0)
        return;
    ::fsync(fd); // some file systems cannot flush a folder; the rename is done
    ::close(fd);
}

#endif

} // namespace

#ifndef _WIN32

bool readRegularFile(const fs::path& path, std::string& bytes, std::string& error) {
    struct stat st {};
    if (::stat(path.c_str(), &st) != 0)
        return fail(error, errno);
    if (refuseNotRegular(st, error))
        return false;
    // Non-blocking, so that a pipe put in the file's place since the check
    // cannot hold the reading up; checked again on what was opened.
    const int fd = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (fd < 0)
        return fail(error, errno);
    bool ok = ::fstat(fd, &st) == 0 ? !refuseNotRegular(st, error) : fail(error, errno);
    if (ok) {
        bytes.assign(static_cast<std::size_t>(st.st_size), '\0');
        std::size_t done = 0;
        for (;;) {
            if (done == bytes.size())
                bytes.resize(bytes.size() + 65536); // the file grew since fstat
            const ssize_t n = ::read(fd, bytes.data() + done, bytes.size() - done);
            if (n < 0 && errno == EINTR)
                continue;
            if (n < 0)
                ok = fail(error, errno);
            if (n <= 0)
                break;
            done += static_cast<std::size_t>(n);
        }
        bytes.resize(done);
    }
    ::close(fd);
    return ok;
}

bool replaceFile(const fs::path& target, bool exists, std::string_view bytes, std::string& error) {
    struct stat old {};
    if (exists) {
        // Whether the system would let the file itself be written (a
        // read-only file system, say); never waits, never follows a link.
        const int fd =
            ::open(target.c_str(), O_WRONLY | O_NONBLOCK | O_NOFOLLOW | O_NOCTTY | O_CLOEXEC);
        if (fd < 0)
            return fail(error, errno);
        const bool ok = ::fstat(fd, &old) == 0 ? !refuseNotRegular(old, error) : fail(error, errno);
        ::close(fd);
        if (!ok)
            return false;
    }
    // Created exclusively: an existing file or link of the name, planted or
    // left over, makes the open fail and another name is drawn.
    fs::path temp;
    int fd = -1;
    for (int attempt = 0; fd < 0; ++attempt) {
        temp = tempName(target);
        fd = ::open(temp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_NOCTTY | O_CLOEXEC,
                    0600);
        if (fd < 0 && (errno != EEXIST || attempt == 100))
            return fail(error, errno);
    }
    bool ok = writeAll(fd, bytes, error) && keepOwnerAndMode(fd, exists ? &old : nullptr, error);
    if (ok) {
        const int fault = injectedFault(SaveStep::Sync);
        if (fault != 0 || ::fsync(fd) != 0)
            ok = fail(error, fault != 0 ? fault : errno);
    }
    if (::close(fd) != 0 && ok)
        ok = fail(error, errno);
    if (ok) {
        const int fault = injectedFault(SaveStep::Rename);
        if (fault != 0 || ::rename(temp.c_str(), target.c_str()) != 0)
            ok = fail(error, fault != 0 ? fault : errno);
    }
    if (!ok) {
        ::unlink(temp.c_str());
        return false;
    }
    syncFolder(target);
    return true;
}

#else

// Windows has neither pipes nor devices among ordinary paths, owners that a
// program may hand on, nor a way to flush a folder: the checks go through
// the file system library, the flush through _commit.

bool readRegularFile(const fs::path& path, std::string& bytes, std::string& error) {
    std::error_code ec;
    const fs::file_status status = fs::status(path, ec);
    if (ec) {
        error = ec.message();
        return false;
    }
    if (!fs::is_regular_file(status)) {
        error = notRegularFile(status.type());
        return false;
    }
    const int fd = ::_wopen(path.c_str(), _O_RDONLY | _O_BINARY);
    if (fd < 0)
        return fail(error, errno);
    bytes.clear();
    char buffer[65536];
    bool ok = true;
    for (;;) {
        const int n = ::_read(fd, buffer, sizeof buffer);
        if (n < 0)
            ok = fail(error, errno);
        if (n <= 0)
            break;
        bytes.append(buffer, static_cast<std::size_t>(n));
    }
    ::_close(fd);
    return ok;
}

bool replaceFile(const fs::path& target, bool exists, std::string_view bytes, std::string& error) {
    if (exists) {
        const int probe = ::_wopen(target.c_str(), _O_WRONLY | _O_BINARY);
        if (probe < 0)
            return fail(error, errno);
        ::_close(probe);
    }
    fs::path temp;
    int fd = -1;
    for (int attempt = 0; fd < 0; ++attempt) {
        temp = tempName(target);
        fd = ::_wopen(temp.c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY,
                      _S_IREAD | _S_IWRITE);
        if (fd < 0 && (errno != EEXIST || attempt == 100))
            return fail(error, errno);
    }
    bool ok = true;
    if (const int fault = injectedFault(SaveStep::Write))
        ok = fail(error, fault);
    for (std::size_t done = 0; ok && done < bytes.size();) {
        const unsigned chunk =
            static_cast<unsigned>(std::min<std::size_t>(bytes.size() - done, 1 << 30));
        const int n = ::_write(fd, bytes.data() + done, chunk);
        if (n <= 0)
            ok = fail(error, n < 0 ? errno : EIO);
        else
            done += static_cast<std::size_t>(n);
    }
    if (ok) {
        const int fault = injectedFault(SaveStep::Sync);
        if (fault != 0 || ::_commit(fd) != 0)
            ok = fail(error, fault != 0 ? fault : errno);
    }
    if (::_close(fd) != 0 && ok)
        ok = fail(error, errno);
    std::error_code ec;
    if (ok) {
        if (const int fault = injectedFault(SaveStep::Rename))
            ok = fail(error, fault);
        else if (fs::rename(temp, target, ec); ec)
            ok = false, error = ec.message();
    }
    if (!ok)
        fs::remove(temp, ec);
    return ok;
}

#endif

} // namespace marl::platform
