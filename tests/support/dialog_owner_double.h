#pragma once
// A dialog tested on its own needs the editor's side: a window the dialog
// disables and enables again, and a count of the changes it was told of.

#include <QWidget>
#include <map>
#include <optional>

#include "editor/owned_dialog.h"

namespace marl::test {

struct RecordingOwner : QWidget, DialogOwner {
    int calls = 0;
    QWidget* ownerWindow() override { return this; }
    void dialogStored() override { ++calls; }
};

// What such a test reads besides the dialog: "calls", "owner" (on or off),
// "open" and "changed" (x or -), and the test's own values in `more`.
inline std::optional<QString> ownedDialogProbe(const QString& name, const RecordingOwner& owner,
                                               const OwnedDialog* dialog,
                                               std::map<QString, QString> more) {
    more.insert({{"calls", QString::number(owner.calls)},
                 {"owner", owner.isEnabled() ? "on" : "off"},
                 {"open", dialog && dialog->isVisible() ? "x" : "-"},
                 {"changed", dialog && dialog->changed() ? "x" : "-"}});
    const auto it = more.find(name);
    return it == more.end() ? std::nullopt : std::optional<QString>(it->second);
}

} // namespace marl::test
