#pragma once
// The values dialog tested on its own: an object put into slot 1 of the
// table (slot 0 holds another, which must stay as it is), the dialog opened
// on it as the editor opens it, and scripts that step into its pick lists.

#include <QLabel>

#include "dialog_owner_double.h"
#include "script_player.h"

#include "objects/form_object_values.h"
#include "objects/object_record.h"

namespace marl::test {

inline constexpr int kSlot = 1;

inline QString valuesText(const ObjectRecord& object) {
    QStringList values;
    for (std::int32_t value : object.Values)
        values.append(QString::number(value));
    return values.join(' ');
}

// The dialog on the object in slot 1 (slot 0 holds another, which must stay
// as it is), as the editor opens it: the owner disabled, the dialog shown.
struct ValuesSession {
    RecordingOwner owner;
    ScriptedPrompts prompts;
    QPointer<FormObjectValues> dialog;

    ValuesSession(int type, const QString& values) {
        objectTable()[0].Values = {9, 9, 9, 9};
        ObjectRecord& object = objectTable()[kSlot];
        object.OType = static_cast<std::int16_t>(type);
        const QStringList numbers = values.split(' ');
        for (int v = 0; v < kObjectValues; ++v)
            object.Values[std::size_t(v)] = numbers.value(v).toInt();
        owner.show();
        owner.setEnabled(false);
        dialog = new FormObjectValues(owner, prompts);
        dialog->SetupForm(kSlot, type);
        dialog->show();
        dialog->activateWindow();
    }
    ~ValuesSession() { delete dialog.data(); }

    // The text of a label in any window, "values" (the slot's), "saved" (its remembered light
    // duration), "dialog" (the values dialog on or off) and "pick" (the pick list open).
    std::optional<QString> probe(const QString& name) const {
        const ObjectRecord& object = objectTable()[kSlot];
        if (name.startsWith("label"))
            for (QWidget* window : QApplication::topLevelWidgets())
                if (auto* label = window->findChild<QLabel*>(name))
                    return label->text();
        QString pick = "-";
        for (const char* form : {"formObjectSpells", "formObjectLiquids", "formObjectWType",
                                 "formObjectContainerState"})
            if (topLevel(form))
                pick = form;
        return ownedDialogProbe(name, owner, dialog,
                                {{"values", valuesText(object)},
                                 {"saved", QString::number(object.SavedLightDuration)},
                                 {"dialog", dialog && dialog->isEnabled() ? "on" : "off"},
                                 {"pick", pick}});
    }

    // A script that may step into the pick lists (see playAcross).
    bool play(const QStringList& steps) {
        return playAcross(dialog, prompts, steps,
                          [this](const QString& name) { return probe(name); });
    }
};

} // namespace marl::test
