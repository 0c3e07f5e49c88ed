#pragma once
// The description text dialog: one long free text of one record in an
// editor's table, such as a mobile's detailed description or an object's
// action description.  Done stores the text into the record (when it was
// edited) and tells the owner; Cancel, Escape and the frame's close ask
// first while the text holds changes.

#include <functional>
#include <string>

#include "editor/owned_dialog.h"
#include "world/form_text.h"

class QPushButton;

namespace marl {

class Prompts;
class TildeTextEdit;

class DescTextDialog : public OwnedDialog {
    Q_OBJECT
public:
    // The text of the record in a slot of the owner's table.
    using TextField = std::function<std::string&(int record)>;

    // `text` names the window, its title and frame and its Cancel question;
    // `field` reaches the text the dialog edits.
    DescTextDialog(const DialogText& text, TextField field, DialogOwner& owner, Prompts& prompts);

    // Shows the text of the record in slot `recordIndex`.
    void SetupForm(int recordIndex);
    void ClearAll() override;

private:
    void onDone();

    TextField field_;
    int recordIndex_ = 0;

    TildeTextEdit* textDesc_ = nullptr;
};

} // namespace marl
