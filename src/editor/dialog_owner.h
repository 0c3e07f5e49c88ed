#pragma once
// How a dialog that an editor opens on its record hands its result back.
// The dialog writes its part of the record into the editor's table itself;
// it then tells its owner, which marks the record changed and shows what the
// dialog stored, and only that: the rest of the window holds the builder's
// changes not stored yet, which a refill from the table would undo.

class QWidget;

namespace marl {

class DialogOwner {
public:
    virtual ~DialogOwner() = default;
    // The window the dialog disables while it is open and enables again.
    virtual QWidget* ownerWindow() = 0;
    // The dialog changed the record the owner shows.
    virtual void dialogStored() = 0;
};

} // namespace marl
