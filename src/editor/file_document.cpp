#include "editor/file_document.h"

#include "world/zone_file.h"

namespace marl {

void FileDocument::place(std::filesystem::path folder, std::string chosenName) {
    folder_ = std::move(folder);
    chosen_ = std::move(chosenName);
}

void FileDocument::newFile(std::int32_t zone, bool keepFile) {
    if (!keepFile)
        clearFile();
    zone_ = zone;
    started(false);
    changed_ = false;
}

bool FileDocument::load(std::int32_t zone, std::string& error) {
    zone_ = zone;
    clearFile();
    if (!readBack(error)) {
        clearFile();
        return false;
    }
    started(true);
    changed_ = false;
    return true;
}

SaveResult FileDocument::writeAndReadBack(std::string& error) {
    std::error_code ec;
    const bool created = !std::filesystem::exists(std::filesystem::symlink_status(path(), ec));
    if (!writeZoneFile(path(), writeText(), error)) {
        restoreBackup();
        return SaveResult::WriteFailed;
    }
    const bool readBackOk = readBack(error);
    changed_ = false;
    if (written_)
        written_(created);
    return readBackOk ? SaveResult::Stored : SaveResult::ReadBackFailed;
}

} // namespace marl
