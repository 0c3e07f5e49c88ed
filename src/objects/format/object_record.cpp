#include "objects/format/object_record.h"

namespace marl {

int affectCount(const ObjectRecord& object) {
    return static_cast<int>(object.Affects.count());
}

} // namespace marl
