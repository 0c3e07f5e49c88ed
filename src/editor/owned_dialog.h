#pragma once
// A dialog that an editor window opens on its record and waits for, disabled,
// until it closes.  It is a window of its own, not a Qt child of the editor
// (disabling a widget disables its child windows too), is deleted when it
// closes, and enables the editor again whichever way it closes.  Cancel,
// Escape and the frame's close button all ask first while the dialog holds
// changes that are not stored.

#include <QDialog>
#include <QPointer>

#include "editor/dialog_owner.h"
#include "editor/form_text.h"
#include "widgets/prompts.h"

class QHBoxLayout;
class QPushButton;

namespace marl {

class Prompts;

// The words a dialog's questions use about its unstored changes.
struct DialogQuestions {
    QString changesLine; // "Changes to Door Not Saved."
    QString title;       // "Door Not Saved"

    // "Changes to <thing> Not Saved.", titled "<thing> Not Saved".
    static DialogQuestions notSaved(const QString& thing);
    // "Changes to <thing> Have Been Made.", titled "<thing> Changed".
    static DialogQuestions madeChanges(const QString& thing);
    // The Cancel question of a dialog's text table.
    static DialogQuestions of(const DialogText& text);
};

class OwnedDialog : public QDialog, public PromptsWindow {
    Q_OBJECT
public:
    bool changed() const { return changed_; }
    Prompts& windowPrompts() override { return prompts_; }
    // Escape acts as Cancel.
    void reject() override;
    // Empties the dialog's fields.
    virtual void ClearAll() = 0;

protected:
    OwnedDialog(DialogOwner& owner, Prompts& prompts, DialogQuestions questions);
    void closeEvent(QCloseEvent* event) override;

    // Cancel: asks while there are changes, then closes.
    void onCancel();
    // Closes without asking.
    void finish();
    // Clear All: asks, then clears (a change) and puts the focus in `focus`.
    void onClearAll(QWidget* focus);
    // Clear All at the left, Cancel and Done at the right, Done the default
    // unless Enter belongs to a text: the commands every such dialog ends
    // with, made as its buttons and returned as the row for its layout.
    QHBoxLayout* makeCommands(bool doneIsDefault = true);
    // Hands the stored result to the owner (while it is still there).
    void tellOwnerStored();
    // The builder agreed to leave without storing the dialog's changes.
    virtual void changesDropped() {}
    const QString& notSavedLine() const { return questions_.changesLine; }
    const QString& notSavedTitle() const { return questions_.title; }

    Prompts& prompts_;
    bool changed_ = false;
    QPushButton* buttonClearAll_ = nullptr;
    QPushButton* buttonCancel_ = nullptr;
    QPushButton* buttonDone_ = nullptr;

private:
    bool mayCancel();

    DialogOwner* owner_;
    QPointer<QWidget> ownerWindow_;
    DialogQuestions questions_;
    bool closing_ = false;
};

} // namespace marl
