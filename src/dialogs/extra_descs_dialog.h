#pragma once
// The extra-descriptions dialog of the room and object editors (one class,
// set up by a variant), on the record the editor shows.  Each pair is a
// keyword list and the text "look <keyword>" prints.  The list's commands
// (entry_controller.h) edit the pairs in that record straight away and tell
// the editor its record changed; Done and Cancel only guard what is typed
// into the two fields and not yet added or updated.

#include <memory>

#include "editor/entry_controller.h"
#include "editor/owned_dialog.h"
#include "editor/shown.h"
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

private:
    void buildLayout();
    void connectHandlers();
    void onFieldChanged(bool fieldEmpty);
    void onDone();
    void showEditedLine(int line);

    ExtraDescsVariant variant_;

    QListWidget* listExtraDescs_ = nullptr;
    std::unique_ptr<EntryController<ExtraDesc, kExtraDescSlots>> pairs_;
    QLineEdit* textKeywords_ = nullptr;
    TildeTextEdit* textDesc_ = nullptr;
    EntryCommands buttons_;
};

} // namespace marl
