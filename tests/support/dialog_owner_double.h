#pragma once
// A dialog tested on its own needs the editor's side: a window the dialog
// disables and enables again, and a count of the changes it was told of.

#include <QPointer>
#include <QtTest>
#include <functional>
#include <map>
#include <optional>

#include "editor/owned_dialog.h"
#include "script_player.h"

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

// A dialog on record 1 (`setup` fills the table and sets the dialog up), the
// editor's side disabled as the editor does before showing it; the dialog a
// window of its own, so that it stays usable.  Its scripts may step into the
// dialog's own pick lists (see playAcross) and read `values` besides the
// owner's side.
template <typename Dialog> struct OnRecord {
    RecordingOwner owner;
    ScriptedPrompts prompts;
    QPointer<Dialog> dialog;
    std::function<std::map<QString, QString>()> values;
    template <typename Setup, typename... Args> explicit OnRecord(Setup setup, Args&&... args) {
        owner.show();
        owner.setEnabled(false);
        dialog = new Dialog(std::forward<Args>(args)..., owner, prompts);
        setup(*dialog);
        dialog->show();
        dialog->activateWindow();
        QVERIFY(!dialog->parent() && dialog->testAttribute(Qt::WA_DeleteOnClose));
    }
    ~OnRecord() { delete dialog.data(); }
    bool play(const QStringList& steps) {
        return playAcross(dialog, prompts, steps, [&](const QString& name) {
            return ownedDialogProbe(name, owner, dialog, values ? values() : decltype(values())());
        });
    }
};

} // namespace marl::test
