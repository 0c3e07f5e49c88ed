#include "rooms/format/room_checks.h"

#include "world/vocabulary.h"

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

namespace marl {

void checkRoomFlags(Findings& found, const RoomRecord& room) {
    constexpr int kServerRoomFlags = 16;
    if (flagBits(room.BitV) >> kServerRoomFlags != 0)
        found.push_back({Severity::OnlyLogged,
                         "room flags beyond the " + std::to_string(kServerRoomFlags) +
                             " the server names (" + room.BitV + ")",
                         "unknown room flag"});
}

} // namespace marl
