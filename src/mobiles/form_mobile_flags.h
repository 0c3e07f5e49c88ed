#pragma once
// formMobileAction and formMobileAffect: one dialog of flag check boxes,
// configured with the action or the affect letter table.  It edits one flag
// text of the mobile in a slot of the mobile table and stores it on Done.

#include "editor/owned_dialog.h"
#include "mobiles/format/mobile_vocabulary.h"

class QPushButton;

namespace marl {

class FlagGrid;
class Prompts;

class FormMobileFlags : public OwnedDialog {
    Q_OBJECT
public:
    // `def` is kActionFlagDialog or kAffectFlagDialog.
    FormMobileFlags(const FlagDialogDef& def, DialogOwner& owner, Prompts& prompts);

    // Shows the flags of the mobile in `slot`.
    void SetupForm(int slot);
    void ClearAll() override;

private:
    void onDone();

    const FlagDialogDef& def_;
    int recordIndex_ = 0;

    FlagGrid* flags_ = nullptr;
};

} // namespace marl
