// The one place that speaks to the platform's file API directly: reading a
// regular file without ever waiting on a pipe or device, and replacing a file
// through a new one beside it.  Each platform gives a few small calls; the
// reading and the replacing are written once on top of them.
#include "world/platform_file.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <random>

#include <fcntl.h>
#include <sys/stat.h>
#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace fs = std::filesystem;

namespace marl::platform {

namespace {

bool fail(std::string& error, int code) {
    error = reason(code);
    return false;
}

// A folder that will not take the new file (read-only, or not the
// builder's to write in) is named as what refuses the save: the file itself
// would have taken it.
bool failNewFile(std::string& error, int code, const fs::path& target) {
    error = reason(code);
    if (code == EACCES || code == EPERM || code == EROFS) {
        const fs::path folder = target.parent_path();
        error = "the folder " + (folder.empty() ? std::string(".") : folder.string()) +
                " refuses the save (" + error + ")";
    }
    return false;
}

#ifdef _WIN32

// Windows has no pipes or devices among ordinary paths, no owners a program
// may hand on, and no way to flush a folder: the kind of file comes from the
// file system library, the flush from _commit.
using FileInfo = struct _stat64;

bool regular(const FileInfo& info, std::string& error) {
    if ((info.st_mode & _S_IFMT) == _S_IFREG)
        return true;
    error = notRegularFile((info.st_mode & _S_IFMT) == _S_IFDIR ? fs::file_type::directory
                                                                : fs::file_type::unknown);
    return false;
}
bool statPath(const fs::path& path, FileInfo& info) {
    return ::_wstat64(path.c_str(), &info) == 0;
}
int openToRead(const fs::path& path) {
    return ::_wopen(path.c_str(), _O_RDONLY | _O_BINARY);
}
int openToProbe(const fs::path& path) {
    return ::_wopen(path.c_str(), _O_WRONLY | _O_BINARY);
}
int createNew(const fs::path& path) {
    return ::_wopen(path.c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY, _S_IREAD | _S_IWRITE);
}
bool statOpen(int fd, FileInfo& info) {
    return ::_fstat64(fd, &info) == 0;
}
long readSome(int fd, char* data, std::size_t size) {
    return ::_read(fd, data, static_cast<unsigned>(std::min<std::size_t>(size, 1 << 30)));
}
long writeSome(int fd, const char* data, std::size_t size) {
    return ::_write(fd, data, static_cast<unsigned>(std::min<std::size_t>(size, 1 << 30)));
}
bool keepOwnerAndMode(int, const FileInfo*, std::string&) {
    return true; // a file's read-only attribute is refused before; nothing else to keep
}
bool flush(int fd) {
    return ::_commit(fd) == 0;
}
bool closeFile(int fd) {
    return ::_close(fd) == 0;
}
bool renameOver(const fs::path& from, const fs::path& to, std::string& error) {
    std::error_code ec;
    fs::rename(from, to, ec); // replaces an existing file
    if (ec)
        error = ec.message();
    return !ec;
}
void removeFile(const fs::path& path) {
    ::_wunlink(path.c_str());
}
void syncFolder(const fs::path&) {}

#else

using FileInfo = struct stat;

fs::file_type typeOf(mode_t mode) {
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

bool regular(const FileInfo& info, std::string& error) {
    if (S_ISREG(info.st_mode))
        return true;
    error = notRegularFile(typeOf(info.st_mode));
    return false;
}
bool statPath(const fs::path& path, FileInfo& info) {
    return ::stat(path.c_str(), &info) == 0;
}
// Non-blocking, so that a pipe put in the file's place since it was looked
// at cannot hold the program up; what was opened is looked at again.
int openToRead(const fs::path& path) {
    return ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
}
// Whether the system would let the file itself be written (a read-only file
// system, say); never waits, never follows a link.
int openToProbe(const fs::path& path) {
    return ::open(path.c_str(), O_WRONLY | O_NONBLOCK | O_NOFOLLOW | O_NOCTTY | O_CLOEXEC);
}
// Exclusively, and readable by the builder alone until it is complete: an
// existing file or link of the name makes the open fail.
int createNew(const fs::path& path) {
    return ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_NOCTTY | O_CLOEXEC,
                  0600);
}
bool statOpen(int fd, FileInfo& info) {
    return ::fstat(fd, &info) == 0;
}
long readSome(int fd, char* data, std::size_t size) {
    return ::read(fd, data, std::min<std::size_t>(size, 1 << 30));
}
long writeSome(int fd, const char* data, std::size_t size) {
    return ::write(fd, data, std::min<std::size_t>(size, 1 << 30));
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

// The old file's owner, group and mode on the new one.  Only the owner's
// change may be refused (a builder cannot give a file away): the group is
// then kept where the builder belongs to it.
bool keepOwnerAndMode(int fd, const FileInfo* old, std::string& error) {
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
bool flush(int fd) {
    return ::fsync(fd) == 0;
}
bool closeFile(int fd) {
    return ::close(fd) == 0;
}
bool renameOver(const fs::path& from, const fs::path& to, std::string& error) {
    return ::rename(from.c_str(), to.c_str()) == 0 || fail(error, errno);
}
void removeFile(const fs::path& path) {
    ::unlink(path.c_str());
}
// So that the rename survives a power cut.  Some file systems cannot flush a
// folder; the file is replaced all the same.
void syncFolder(const fs::path& target) {
    const fs::path folder = target.parent_path().empty() ? fs::path(".") : target.parent_path();
    const int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0)
        return;
    ::fsync(fd);
    ::close(fd);
}

#endif

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

bool writeAll(int fd, std::string_view bytes, std::string& error) {
    if (const int fault = injectedFault(SaveStep::Write))
        return fail(error, fault);
    for (std::size_t done = 0; done < bytes.size();) {
        const long n = writeSome(fd, bytes.data() + done, bytes.size() - done);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return fail(error, n < 0 ? errno : EIO);
        done += static_cast<std::size_t>(n);
    }
    return true;
}

bool tooLarge(std::string& error) {
    error = "the file is larger than any zone file (more than " +
            std::to_string(kMaxZoneFileBytes >> 20) + " MB), so it is not read";
    return false;
}

// Up to the end of the file, however it changes while it is read, but never
// beyond the largest zone file.
bool readAll(int fd, std::size_t size, std::string& bytes, std::string& error) {
    if (size > kMaxZoneFileBytes)
        return tooLarge(error);
    // One byte more than the file holds, so that the read that finds its end
    // has room and the buffer need not grow for it.
    bytes.assign(size + 1, '\0');
    std::size_t done = 0;
    for (;;) {
        if (done == bytes.size()) {
            if (done > kMaxZoneFileBytes)
                return tooLarge(error);
            bytes.resize(bytes.size() + 65536); // the file grew since it was looked at
        }
        const long n = readSome(fd, bytes.data() + done, bytes.size() - done);
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0)
            return fail(error, errno);
        if (n == 0)
            break;
        done += static_cast<std::size_t>(n);
    }
    bytes.resize(done);
    return true;
}

} // namespace

bool readRegularFile(const fs::path& path, std::string& bytes, std::string& error,
                     bool listedRegular) {
    FileInfo info{};
    if (!listedRegular) {
        if (!statPath(path, info))
            return fail(error, errno);
        if (!regular(info, error))
            return false;
        if (static_cast<std::uint64_t>(info.st_size) > kMaxZoneFileBytes)
            return tooLarge(error);
    }
    const int fd = openToRead(path);
    if (fd < 0)
        return fail(error, errno);
    const bool ok = (statOpen(fd, info) || fail(error, errno)) && regular(info, error) &&
                    readAll(fd, static_cast<std::size_t>(info.st_size), bytes, error);
    closeFile(fd);
    return ok;
}

bool replaceFile(const fs::path& target, bool exists, std::string_view bytes, std::string& error) {
    FileInfo old{};
    if (exists) {
        const int fd = openToProbe(target);
        if (fd < 0)
            return fail(error, errno);
        const bool ok = (statOpen(fd, old) || fail(error, errno)) && regular(old, error);
        closeFile(fd);
        if (!ok)
            return false;
    }
    // A file or link already there under the drawn name, planted or left
    // over, makes the creation fail: another name is drawn.
    fs::path temp;
    int fd = -1;
    for (int attempt = 0; fd < 0; ++attempt) {
        temp = tempName(target);
        fd = createNew(temp);
        if (fd < 0 && (errno != EEXIST || attempt == 100))
            return failNewFile(error, errno, target);
    }
    bool ok = writeAll(fd, bytes, error) && keepOwnerAndMode(fd, exists ? &old : nullptr, error);
    if (ok) {
        const int fault = injectedFault(SaveStep::Sync);
        if (fault != 0 || !flush(fd))
            ok = fail(error, fault != 0 ? fault : errno);
    }
    if (!closeFile(fd) && ok)
        ok = fail(error, errno);
    if (ok) {
        const int fault = injectedFault(SaveStep::Rename);
        ok = fault != 0 ? fail(error, fault) : renameOver(temp, target, error);
    }
    if (!ok) {
        removeFile(temp);
        return false;
    }
    syncFolder(target);
    return true;
}

} // namespace marl::platform
