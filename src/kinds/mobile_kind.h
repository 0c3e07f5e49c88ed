#pragma once
// The mobile kind: mobile files (.mob), one MobileRecord a mobile.

#include <cstdint>
#include <string>
#include <string_view>

#include "kinds/kind_info.h"
#include "mobiles/format/mobile_checks.h"
#include "mobiles/format/mobile_file.h"

namespace marl {

struct MobileKind {
    using Record = MobileRecord;
    using File = MobileTable;
    using Window = class FormMobile;
    static constexpr KindInfo info = {
        0,
        "Mobile",
        ".mob",
        "Mobile files (*.mob)|*.mob",
        "New Mobile File",
        "Open Mobile File",
        "mobile",
        "mobiles",
        {"formMobile", "Mobile Editor", "Changes to Mobile Not Saved.", "Mobile Not Saved",
         "Mobile Not Deleted", "Overwrite Existing Mobile?", "Overwrite Existing Mobile",
         "Really Delete This Mobile?", "Zone Already Contains 99 Mobiles"}};

    static int read(std::string_view bytes, File& file) { return readMobiles(bytes, file); }
    // The records one at a time, as the whole world is read.
    static int readEach(std::string_view bytes, RecordStream<Record>& each) {
        return readMobilesEach(bytes, each);
    }
    static std::string write(const File& file, int count, std::int32_t /*zone*/) {
        return writeMobiles(file, count);
    }
    static Findings problems(const Record& mobile, LineEnd lineEnd) {
        Findings found;
        checkMobileTexts(found, mobile, lineEnd);
        return found;
    }
    static const std::string& listName(const Record& mobile) { return mobile.SDesc; }
};

} // namespace marl
