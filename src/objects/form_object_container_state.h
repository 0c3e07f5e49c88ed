#pragma once
// formObjectContainerState: a container's state number as four boxes
// (Closeable, PickProof, Closed, Locked).  The values dialog opens it on the
// number in its State field; Done writes the boxes' sum back into that
// field, only when the builder changed a box, so a number outside 1 to 15
// that checks no box passes through untouched.

#include <QPointer>
#include <array>

#include "editor/owned_dialog.h"

class QCheckBox;
class QLineEdit;
class QPushButton;

namespace marl {

class Prompts;

class FormObjectContainerState : public OwnedDialog {
    Q_OBJECT
public:
    // `target` is the field Done writes the state into.
    FormObjectContainerState(DialogOwner& owner, Prompts& prompts, QLineEdit& target);

    // Checks the boxes that make up `state` (none outside 1 to 15).
    void SetupForm(int state);
    void ClearAll() override;
    // The sum of the checked boxes' bits.
    int stateValue() const;

private:
    void onDone();

    QPointer<QLineEdit> target_;
    std::array<QCheckBox*, 4> boxes_{};
};

} // namespace marl
