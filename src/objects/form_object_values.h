#pragma once
// formObjectValues: the four type-specific values of one object, one group
// of fields per family of object types, with the pick lists and the
// container-state dialog it opens and waits for.

#include <array>
#include <memory>
#include <optional>

#include "editor/dialog_waiter.h"
#include "editor/owned_dialog.h"
#include "editor/shown.h"
#include "objects/object_values.h"

class QCheckBox;
class QGroupBox;
class QPushButton;

namespace marl {

class NumericField;
class Prompts;
class VNumNameLabel;
class WorldNames;

class FormObjectValues : public OwnedDialog, public DialogOwner {
    Q_OBJECT
public:
    FormObjectValues(DialogOwner& owner, Prompts& prompts);

    // Shows the values of the object shown in the group of `type`.
    void SetupForm(Shown<ObjectRecord> object, int type);
    // The world the key's name and pick list come from.
    void setWorld(std::shared_ptr<WorldNames> names);
    // Empties the fields and boxes of the group shown.
    void ClearAll() override;
    // A pick list or the container state handed back a changed number.
    void HasChanged() { changed_ = true; }

    // DialogOwner: what the pick lists and the container state report to.
    QWidget* ownerWindow() override { return this; }
    void dialogStored() override { HasChanged(); }

protected:
    void closeEvent(QCloseEvent* event) override;
    // Values left unstored still mark the object changed: the builder has
    // been at them, and Save is the way to be sure the file holds them.
    void changesDropped() override { tellOwnerStored(); }

private:
    // The controls of one group, by the index of the value they show.
    struct GroupControls {
        QGroupBox* frame = nullptr;
        std::array<QWidget*, kObjectValues> captions{}; // a label or a button
        std::array<NumericField*, kObjectValues> fields{};
        std::array<QCheckBox*, kObjectValues> boxes{};
        std::array<VNumNameLabel*, kObjectValues> names{}; // a VNum's record
    };

    // Layout: one group's frame and controls.
    void buildGroup(std::size_t index);
    void ParseValues(int type);
    void SaveValues();
    // False, after telling the builder, when a field of the group shown is
    // empty or not a number.
    bool checkValues();
    void onDone();
    void onPick(std::size_t value);
    void onEternal(bool checked);

    void warnOfServerChecks();
    Shown<ObjectRecord> object_;
    int type_ = 0;
    const ValueGroupDef* group_ = nullptr;
    GroupControls* shown_ = nullptr;
    std::optional<std::int32_t> savedDuration_;

    std::array<GroupControls, kValueGroups.size()> groups_{};
    QCheckBox* checkEternal_ = nullptr;
    NumericField* textLightDuration_ = nullptr; // the field the Eternal box sets
    DialogWaiter pickers_{*this};
    std::shared_ptr<WorldNames> world_;
};

} // namespace marl
