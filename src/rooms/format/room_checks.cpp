#include "rooms/format/room_checks.h"

namespace marl {

void checkRoomTexts(Findings& found, const RoomRecord& room, LineEnd lineEnd) {
    checkText(found, "name", room.Name, TextForm::String, lineEnd);
    checkText(found, "description", room.Desc, TextForm::Text, lineEnd);
    for (const ExitRecord& exit : room.Exits) {
        if (exit.Absent)
            continue;
        checkText(found, "exit description", exit.Desc, TextForm::Text, lineEnd);
        checkText(found, "exit keywords", exit.Keywords, TextForm::String, lineEnd);
    }
    checkExtraDescTexts(found, room.ExtraDescs, lineEnd);
}

} // namespace marl
