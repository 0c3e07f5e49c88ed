#pragma once
// A window that opens a dialog and waits for it: the window is disabled
// while the dialog is open (the dialog enables it again as it closes), a
// close of the window's frame is held back and the dialog brought forward
// instead, and a dialog still open when the window goes goes with it.  The
// editors wait so for their dialogs, and the object values dialog for its
// pick lists.

#include <QPointer>
#include <QWidget>

namespace marl {

class DialogWaiter {
public:
    explicit DialogWaiter(QWidget& window) : window_(window) {}
    ~DialogWaiter() { delete dialog_.data(); }
    DialogWaiter(const DialogWaiter&) = delete;
    DialogWaiter& operator=(const DialogWaiter&) = delete;

    // Disables the window and shows `dialog`, a window of its own.
    void show(QWidget* dialog) {
        dialog_ = dialog;
        window_.setEnabled(false);
        dialog->show();
        dialog->raise();
        dialog->activateWindow();
    }

    // True while the dialog is open, which it then brings forward: the
    // window has to wait for it before it may close.
    bool holdsClose() const {
        if (!dialog_ || !dialog_->isVisible())
            return false;
        dialog_->raise();
        dialog_->activateWindow();
        return true;
    }

    QWidget* dialog() const { return dialog_.data(); }

private:
    QWidget& window_;
    QPointer<QWidget> dialog_;
};

} // namespace marl
