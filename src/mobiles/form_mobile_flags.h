#pragma once
// formMobileAction and formMobileAffect: one dialog of flag check boxes,
// configured with the action or the affect letter table.  It edits one flag
// text of the mobile shown and stores it on Done.

#include "editor/owned_dialog.h"
#include "editor/shown.h"
#include "mobiles/mobile_vocabulary.h"

class QPushButton;

namespace marl {

class FlagGrid;
class Prompts;

class FormMobileFlags : public OwnedDialog {
    Q_OBJECT
public:
    // `def` is kActionFlagDialog or kAffectFlagDialog.
    FormMobileFlags(const FlagDialogDef& def, DialogOwner& owner, Prompts& prompts);

    // Shows the flags of the mobile shown.
    void SetupForm(Shown<MobileRecord> mobile);
    void ClearAll() override;

private:
    void onDone();

    const FlagDialogDef& def_;
    Shown<MobileRecord> mobile_;

    FlagGrid* flags_ = nullptr;
};

} // namespace marl
