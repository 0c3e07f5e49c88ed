// The one place that knows every kind's window class: each entry names its
// window (`using Window = class FormRoom;`), and its header is included here.

#include "shell/kind_windows.h"

#include "kinds/zone_kinds.h"
#include "mobiles/form_mobile.h"
#include "objects/form_object.h"
#include "rooms/form_room.h"
#include "shell/form_main.h"
#include "shops/form_shop.h"
#include "zones/form_zone.h"

namespace marl {

void useKindWindows(FormMain& main) {
    forEachKind([&]<typename Kind>() {
        if constexpr (EditedKind<Kind>)
            main.setEditorFactory(Kind::info.number, [](EditorHost& host) -> ZoneEditor* {
                return new typename Kind::Window(host);
            });
    });
}

} // namespace marl
