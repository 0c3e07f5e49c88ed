#include "rooms/room_controls.h"

namespace marl {

const std::array<FieldDef, 2> kRoomFields = {{
    {"frameVNum", "VNum", "textVNum", FieldKind::Number, digitsRule(5)},
    {"frameName", "Room Name", "textName", FieldKind::Text, textRule()},
}};

} // namespace marl
