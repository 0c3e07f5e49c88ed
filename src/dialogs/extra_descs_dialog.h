#pragma once
// The extra-descriptions dialog of the room and object editors (one class,
// set up by a variant), on the record the editor shows.  Each pair is a keyword list and the text
// "look <keyword>" prints.  The list buttons edit the pairs in that record straight away and tell
// the editor its record changed; Done and Cancel only guard what is typed into the two fields and
// not yet added or updated.

#include "editor/owned_dialog.h"
#include "editor/shown.h"
#include "widgets/entry_list.h"
#include "world/record_table.h"

class QListWidget;
class QLineEdit;

namespace marl {

class Prompts;
class TildeTextEdit;

struct ExtraDescsVariant {
    QString formName;     // formRoomExtraDescs, formObjectExtraDescs
    QString frameCaption; // "Room Extra Descriptions", "Object Extra Descriptions"
    // The pairs of the record the editor shows.
    Shown<ExtraDescList> pairs;
    // Whether Done with unstored text also marks the owner's record changed.
    bool hasChangedWhenPending = false;
};

class ExtraDescsDialog : public OwnedDialog {
    Q_OBJECT
public:
    // `owner` is the editor: its window is disabled by its opener while the
    // dialog is open, and enabled again here whichever way the dialog closes.
    ExtraDescsDialog(ExtraDescsVariant variant, DialogOwner& owner, Prompts& prompts);

    void SetupForm();
    void ClearAll() override;

    bool editing() const { return entries_->editing(); }
    int count() const { return count_; }

private:
    void buildLayout();
    void connectHandlers();
    ExtraDescList& pairs() const { return *variant_.pairs; }
    void setPair(int slot, ExtraDesc pair);
    void onFieldChanged(bool fieldEmpty);
    void onEdit();
    void onAdd();
    void onUpdate();
    void onRemove();
    void onRemoveAll();
    void onDone();

    void showEditedLine(int line);

    ExtraDescsVariant variant_;
    int count_ = 0;

    QListWidget* listExtraDescs_ = nullptr;
    EntryList* entries_ = nullptr;
    QLineEdit* textKeywords_ = nullptr;
    TildeTextEdit* textDesc_ = nullptr;
    EntryCommands buttons_;
};

} // namespace marl
