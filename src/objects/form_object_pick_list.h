#pragma once
// formObjectSpells, formObjectLiquids and formObjectWType: one pick list
// class on three tables.  The values dialog opens one on the number in a
// field; the builder chooses by name, and Done writes the chosen number back
// into that field, only when the builder changed the choice, so a number no
// option stands for passes through untouched.

#include <QPointer>

#include "editor/owned_dialog.h"

class QLineEdit;
class QPushButton;

namespace marl {

class OptionGroup;
class Prompts;
struct PickListDef;

class FormObjectPickList : public OwnedDialog {
    Q_OBJECT
public:
    // `target` is the field Done writes the chosen number into.
    FormObjectPickList(DialogOwner& owner, Prompts& prompts, const PickListDef& list,
                       QLineEdit& target);

    // Selects the option of `number`; a number without one selects none and
    // stays the chosen number.
    void SetupForm(int number);
    // Selects the list's default option.
    void ClearAll() override;
    int chosenNumber() const;

private:
    void addLiquidEffects();
    void onDone();
    void onClearAll();

    const PickListDef& list_;
    QPointer<QLineEdit> target_;
    OptionGroup* options_ = nullptr;
};

} // namespace marl
