#include "rooms/form_room.h"

namespace marl {

FormRoom::FormRoom(EditorHost& host) : host_(host) {
    setObjectName(QStringLiteral("formRoom"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QStringLiteral("Room Editor"));
}

void FormRoom::newZone(std::int32_t) {}

bool FormRoom::openZone(std::int32_t, QString&) { return true; }

} // namespace marl
