#pragma once
// formMobileESpecs: the extended values of one mobile, its bare-hand attack
// and seven abilities.  A mobile with any of them not 0 is saved as an "E"
// mobile; storing every one as 0 makes it an "S" mobile again.

#include <array>

#include "editor/owned_dialog.h"
#include "editor/shown.h"
#include "mobiles/mobile_vocabulary.h"

class QPushButton;

namespace marl {

class NumericField;
class OptionGroup;
class Prompts;

class FormMobileESpecs : public OwnedDialog {
    Q_OBJECT
public:
    FormMobileESpecs(DialogOwner& owner, Prompts& prompts);

    // Shows the extended values of the mobile shown.
    void SetupForm(Shown<MobileRecord> mobile);
    void ClearAll() override;

private:
    void onDone();

    Shown<MobileRecord> mobile_;

    OptionGroup* attacks_ = nullptr;
    std::array<NumericField*, kAbilities.size()> abilities_{};
};

} // namespace marl
