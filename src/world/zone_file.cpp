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

bool writeZoneFile(const std::filesystem::path& path, std::string_view bytes, std::string& error) {
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
        out.flush();
        if (!out) {
            error = reason(errno);
            out.close();
            std::error_code ignored;
            std::filesystem::remove(temp, ignored);
            return false;
        }
    }
    std::error_code ec;
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
