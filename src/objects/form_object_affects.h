#pragma once
// formObjectAffects: the affects of one object, the (location, modifier)
// pairs of its `A` blocks; every Add, Update, Remove and Remove All goes
// into the object shown at once and tells the editor its object changed.
// Done and Cancel only guard what is picked or typed and not yet added or
// updated.

#include <memory>

#include "editor/entry_controller.h"
#include "editor/owned_dialog.h"
#include "editor/shown.h"
#include "objects/format/object_record.h"

class QListWidget;

namespace marl {

class NumericField;
class OptionGroup;
class Prompts;

class FormObjectAffects : public OwnedDialog {
    Q_OBJECT
public:
    FormObjectAffects(DialogOwner& owner, Prompts& prompts);

    // Lists the affects of the object shown.
    void SetupForm(Shown<ObjectRecord> object);
    void ClearAll() override;

private:
    void buildLayout();
    void connectHandlers();
    // What the fields hold as an affect, when it may be stored: a location
    // other than "None" and a modifier that reads as a number.
    bool entryReady() const;
    void onLocationPicked(int number);
    void onValueChanged();
    void onDone();

    OptionGroup* locations_ = nullptr;
    NumericField* textValue_ = nullptr;
    QListWidget* listObjectAffects_ = nullptr;
    EntryCommands buttons_;
    std::unique_ptr<EntryController<ObjectAffect, kAffectSlots>> affects_;
};

// The line the affects list shows for an affect: its location's caption (or
// its number, when no option stands for it), a tab and the modifier.
QString affectLine(const ObjectAffect& affect);

} // namespace marl
