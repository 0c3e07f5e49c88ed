#pragma once
// The extra descriptions of one room or object: pairs of keywords and a text
// that a player sees on looking at something the keywords name.  One dialog
// serves both editors, configured by a variant.  It works on the record's
// pairs directly: Add, Update, Remove and Remove All change the table at once;
// Done and Cancel only decide about text typed but not yet stored.

#include <functional>

#include "dialogs/owned_dialog.h"
#include "world/record_table.h"

class QListWidget;
class QLineEdit;
class QPushButton;

namespace marl {

class Prompts;
class TildeTextEdit;

struct ExtraDescsVariant {
    QString formName;     // formRoomExtraDescs, formObjectExtraDescs
    QString frameCaption; // "Room Extra Descriptions", "Object Extra Descriptions"
    // The pairs of the record in a slot of the editor's table.
    std::function<ExtraDescList&(int record)> pairs;
    // The owning editor's HasChanged.
    std::function<void()> hasChanged;
    // Whether Done with unstored text also marks the owner's record changed.
    bool hasChangedWhenPending = false;
};

class ExtraDescsDialog : public OwnedDialog {
    Q_OBJECT
public:
    // `owner` is the editor window: disabled by its opener while the dialog
    // is open, enabled again here whichever way the dialog closes.
    ExtraDescsDialog(ExtraDescsVariant variant, QWidget* owner, Prompts& prompts);

    void SetupForm(int recordIndex);
    void ClearAll() override;

    bool editing() const { return editing_; }
    int count() const { return count_; }

private:
    void buildLayout();
    void connectHandlers();
    ExtraDescList& pairs() const { return variant_.pairs(recordIndex_); }
    int selectedLine() const;
    void setPair(int slot, ExtraDesc pair);
    void onFieldChanged(bool fieldEmpty);
    void onListClicked();
    void onEdit();
    void onAdd();
    void onUpdate();
    void onRemove();
    void onRemoveAll();
    void onDone();

    ExtraDescsVariant variant_;
    bool editing_ = false;
    bool listing_ = false;
    int recordIndex_ = 0;
    int count_ = 0;

    QListWidget* listExtraDescs_ = nullptr;
    QLineEdit* textKeywords_ = nullptr;
    TildeTextEdit* textDesc_ = nullptr;
    QPushButton* buttonAdd_ = nullptr;
    QPushButton* buttonUpdate_ = nullptr;
    QPushButton* buttonEdit_ = nullptr;
    QPushButton* buttonRemove_ = nullptr;
    QPushButton* buttonRemoveAll_ = nullptr;
    QPushButton* buttonClearAll_ = nullptr;
    QPushButton* buttonDone_ = nullptr;
    QPushButton* buttonCancel_ = nullptr;
};

} // namespace marl
