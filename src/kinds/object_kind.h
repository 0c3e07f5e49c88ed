#pragma once
// The object kind: object files (.obj), one ObjectRecord an object.

#include <cstdint>
#include <string>
#include <string_view>

#include "kinds/kind_info.h"
#include "objects/format/object_checks.h"
#include "objects/format/object_file.h"

namespace marl {

struct ObjectKind {
    using Record = ObjectRecord;
    using File = ObjectTable;
    using Window = class FormObject;
    static constexpr KindInfo info = {
        2,
        "Object",
        ".obj",
        "Object files (*.obj)|*.obj",
        "New Object File",
        "Open Object File",
        "object",
        "objects",
        {"formObject", "Object Editor", "Changes to Object Not Saved.", "Object Not Saved",
         "Object Not Deleted", "Overwrite Existing Object?", "Overwrite Existing Object",
         "Really Delete This Object?", "Zone Already Contains 99 Objects"}};

    static int read(std::string_view bytes, File& file) { return readObjects(bytes, file); }
    // The records one at a time, as the whole world is read.
    static int readEach(std::string_view bytes, RecordStream<Record>& each) {
        return readObjectsEach(bytes, each);
    }
    static std::string write(const File& file, int count, std::int32_t /*zone*/) {
        return writeObjects(file, count);
    }
    static Findings problems(const Record& object, LineEnd lineEnd) {
        return objectProblems(object, lineEnd);
    }
    static const std::string& listName(const Record& object) { return object.SDesc; }
};

} // namespace marl
