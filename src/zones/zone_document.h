#pragma once
// The document of one open `.zon` file: the file is one ZoneRecord, its
// header and its reset commands, read and written by the format library.
// Standard C++ only.

#include <string>

#include "editor/file_document.h"
#include "zones/format/zone_record.h"

namespace marl {

class ZoneDocument final : public FileDocument {
public:
    ZoneDocument() : FileDocument(".zon") {}

    // The zone as the window changes it.
    ZoneRecord& zone() { return zone_; }
    const ZoneRecord& zone() const { return zone_; }
    // Writes the zone and reads the file back; on a failed write the zone
    // is as it was.
    SaveResult save(std::string& error) {
        keepBackup();
        return writeAndReadBack(error);
    }
    // Where the header and each command will stand in the file written:
    // sets the zone's numbersLine and firstCommandLine.
    void placeLines();

protected:
    void clearFile() override { zone_ = ZoneRecord{}; }
    void started(bool opened) override;
    void keepBackup() override { backup_ = zone_; }
    void restoreBackup() override { zone_ = backup_; }
    std::string writeText() override;
    bool readBack(std::string& error) override;

private:
    ZoneRecord zone_;
    ZoneRecord backup_;
};

} // namespace marl
