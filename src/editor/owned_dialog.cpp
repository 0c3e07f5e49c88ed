#include "editor/owned_dialog.h"

#include <QCloseEvent>

#include "widgets/prompts.h"
#include "widgets/qt_widgets.h"

namespace marl {

DialogQuestions DialogQuestions::notSaved(const QString& thing) {
    return {QStringLiteral("Changes to %1 Not Saved.").arg(thing),
            QStringLiteral("%1 Not Saved").arg(thing)};
}

DialogQuestions DialogQuestions::madeChanges(const QString& thing) {
    return {QStringLiteral("Changes to %1 Have Been Made.").arg(thing),
            QStringLiteral("%1 Changed").arg(thing)};
}

DialogQuestions DialogQuestions::of(const DialogText& text) {
    return {QString::fromLatin1(text.changedLine), QString::fromLatin1(text.changedTitle)};
}

OwnedDialog::OwnedDialog(DialogOwner& owner, Prompts& prompts, DialogQuestions questions)
    : prompts_(prompts), owner_(&owner), ownerWindow_(owner.ownerWindow()),
      questions_(std::move(questions)) {
    setAttribute(Qt::WA_DeleteOnClose);
}

bool OwnedDialog::mayCancel() {
    if (!changed_)
        return true;
    if (!prompts_.ask(twoLines(notSavedLine(), QStringLiteral("Cancel Anyway?")), notSavedTitle()))
        return false;
    changesDropped();
    return true;
}

void OwnedDialog::onCancel() {
    if (mayCancel())
        finish();
}

void OwnedDialog::reject() {
    onCancel();
}

void OwnedDialog::onClearAll(QWidget* focus) {
    if (!prompts_.ask(QStringLiteral("Really Clear This Form?"), QStringLiteral("Confirm Clear")))
        return;
    changed_ = true;
    ClearAll();
    focus->setFocus();
}

QHBoxLayout* OwnedDialog::makeCommands(bool doneIsDefault) {
    buttonClearAll_ = ui::button(this, "buttonClearAll", "Clear All", 'l');
    buttonCancel_ = ui::button(this, "buttonCancel", "Cancel", 'c');
    buttonDone_ = ui::button(this, "buttonDone", "Done", 'd');
    buttonDone_->setDefault(doneIsDefault);
    return ui::commandRow({buttonClearAll_}, {buttonCancel_, buttonDone_});
}

void OwnedDialog::tellOwnerStored() {
    if (ownerWindow_)
        owner_->dialogStored();
}

void OwnedDialog::finish() {
    closing_ = true;
    close();
}

void OwnedDialog::closeEvent(QCloseEvent* event) {
    // The frame's close button acts as Cancel.
    if (!closing_ && !mayCancel()) {
        event->ignore();
        return;
    }
    closing_ = true;
    event->accept();
    if (ownerWindow_) {
        ownerWindow_->setEnabled(true);
        ownerWindow_->activateWindow();
    }
}

} // namespace marl
