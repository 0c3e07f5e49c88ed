#pragma once
// formObjectAffects: the affects of one object, the (location, modifier)
// pairs of its `A` blocks; every Add, Update, Remove and Remove All goes
// into the object table at once.

#include "editor/owned_dialog.h"

namespace marl {

class Prompts;

class FormObjectAffects : public OwnedDialog {
    Q_OBJECT
public:
    FormObjectAffects(DialogOwner& owner, Prompts& prompts);

    // Lists the affects of the object in `slot`.
    void SetupForm(int slot);
    void ClearAll() override;
};

} // namespace marl
