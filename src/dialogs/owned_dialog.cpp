#include "dialogs/owned_dialog.h"

#include <QCloseEvent>

#include "shell/prompts.h"

namespace marl {

OwnedDialog::OwnedDialog(QWidget* owner, Prompts& prompts, const QString& thing)
    : prompts_(prompts), owner_(owner), thing_(thing) {
    setAttribute(Qt::WA_DeleteOnClose);
}

QString OwnedDialog::notSavedLine() const {
    return QStringLiteral("Changes to %1 Not Saved.").arg(thing_);
}

QString OwnedDialog::notSavedTitle() const {
    return QStringLiteral("%1 Not Saved").arg(thing_);
}

bool OwnedDialog::mayCancel() {
    return !changed_ || prompts_.ask(twoLines(notSavedLine(), QStringLiteral("Cancel Anyway?")),
                                     notSavedTitle());
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
    if (owner_) {
        owner_->setEnabled(true);
        owner_->activateWindow();
    }
}

} // namespace marl
