#pragma once
// A dialog that an editor window opens on its record and waits for, disabled,
// until it closes.  It is a window of its own, not a Qt child of the editor
// (disabling a widget disables its child windows too), is deleted when it
// closes, and enables the editor again whichever way it closes.  Cancel,
// Escape and the frame's close button all ask first while the dialog holds
// changes that are not stored.

#include <QDialog>
#include <QPointer>

namespace marl {

class Prompts;

class OwnedDialog : public QDialog {
    Q_OBJECT
public:
    bool changed() const { return changed_; }
    // Escape acts as Cancel.
    void reject() override;
    // Empties the dialog's fields.
    virtual void ClearAll() = 0;

protected:
    // `thing` names what the dialog edits in its messages: "Door" gives
    // "Changes to Door Not Saved.", titled "Door Not Saved".
    OwnedDialog(QWidget* owner, Prompts& prompts, const QString& thing);
    void closeEvent(QCloseEvent* event) override;

    // Cancel: asks while there are changes, then closes.
    void onCancel();
    // Closes without asking.
    void finish();
    // Clear All: asks, then clears (a change) and puts the focus in `focus`.
    void onClearAll(QWidget* focus);
    QString notSavedLine() const;
    QString notSavedTitle() const;

    Prompts& prompts_;
    bool changed_ = false;

private:
    bool mayCancel();

    QPointer<QWidget> owner_;
    QString thing_;
    bool closing_ = false;
};

} // namespace marl
