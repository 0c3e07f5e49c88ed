#pragma once
// The description text dialog: one long free text of the record an editor
// shows, such as a mobile's detailed description or an object's
// action description.  Done stores the text into the record (when it was
// edited) and tells the owner; Cancel, Escape and the frame's close ask
// first while the text holds changes.

#include <string>

#include "editor/form_text.h"
#include "editor/owned_dialog.h"
#include "editor/shown.h"

class QPushButton;

namespace marl {

class Prompts;
class TildeTextEdit;

class DescTextDialog : public OwnedDialog {
    Q_OBJECT
public:
    // `text` names the window, its title and frame and its Cancel question;
    // `field` reaches the text the dialog edits.
    DescTextDialog(const DialogText& text, Shown<std::string> field, DialogOwner& owner,
                   Prompts& prompts);

    // Shows the text.
    void SetupForm();
    void ClearAll() override;

private:
    void onDone();

    Shown<std::string> field_;

    TildeTextEdit* textDesc_ = nullptr;
};

} // namespace marl
