#pragma once
// formObjectValues: the four type-specific values of one object, one group
// of fields per family of object types, with the pick lists and the
// container-state dialog it opens and waits for.

#include "editor/owned_dialog.h"

namespace marl {

class Prompts;

class FormObjectValues : public OwnedDialog {
    Q_OBJECT
public:
    FormObjectValues(DialogOwner& owner, Prompts& prompts);

    // Shows the values of the object in `slot` in the group of `type`.
    void SetupForm(int slot, int type);
    void ClearAll() override;
};

} // namespace marl
