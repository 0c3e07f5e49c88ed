#include "rooms/format/room_record.h"

namespace marl {

int exitSlotOfDirection(int fileDirection) {
    for (int slot = 0; slot < kExitSlots; ++slot)
        if (kExitFileDirections[static_cast<std::size_t>(slot)] == fileDirection)
            return slot;
    return -1;
}

} // namespace marl
