#pragma once
// The window of one open zone file, whatever the file holds: it starts on a
// new file or a file read, asks before unsaved changes are dropped (Cancel,
// Done, Escape, the frame's close), tells a save's failures, and waits for
// the dialogs it opens.  What the file holds lives in a FileDocument; a
// window of a table of records is a RecordEditor (record_editor.h), which
// adds the record list and its commands.

#include <QWidget>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "editor/dialog_owner.h"
#include "editor/dialog_waiter.h"
#include "editor/editor_host.h"
#include "editor/file_document.h"
#include "kinds/kind_info.h"
#include "widgets/prompts.h"

class QPushButton;

namespace marl {

class WorldNames;

class EditorWindow : public QWidget, public ZoneEditor, public DialogOwner, public PromptsWindow {
    Q_OBJECT
public:
    // `text` holds the kind's window name, title and messages (the kind's
    // noun is its window name after "form": "formRoom" edits a "Room").
    EditorWindow(EditorHost& host, std::unique_ptr<FileDocument> document, const EditorText& text);
    ~EditorWindow() override;
    // The names of the world the file lies in, read in the background from
    // when the window opens the file (null before), and read again after
    // every save; worldOpened() tells the window it has a world.
    const std::shared_ptr<WorldNames>& worldNames() const { return names_; }

    // ZoneEditor: how the main window starts the editor.
    QWidget* window() override { return this; }
    void newZone(std::int32_t zone) override { newZone(zone, false); }
    void newZone(std::int32_t zone, bool keepFile);
    bool openZone(std::int32_t zone, QString& error) override;

    // DialogOwner: what the kind's dialogs report to.
    QWidget* ownerWindow() override { return this; }
    void dialogStored() override;

    // The builder changed something: the document holds unsaved changes
    // (unless the window is filling itself) and Save is enabled.
    void HasChanged();
    bool changed() const { return document_.changed(); }
    std::int32_t zoneNumber() const { return document_.zoneNumber(); }

protected:
    // What the window shows of an empty file of the zone, and of the file
    // just read; both run as the program's own filling (see filling()).
    virtual void showNewFile(std::int32_t zone) = 0;
    virtual void showOpenedFile() = 0;

    // Runs `fill`, the program's own change of the window: it marks nothing
    // changed.
    void filling(const std::function<void()>& fill);
    // The document's folder and file name, from the host.
    void syncFolder();
    // "Changes to Room Not Saved." and `second`, titled "Room Not Saved".
    bool askNotSaved(const QString& second);
    // Asks before unsaved changes are dropped.
    bool mayDiscard();
    // Tells a failed write (titled `title`) or a file that did not read back.
    void tellFailure(SaveResult result, const QString& title, const std::string& error);
    // Opens a dialog on the record shown and waits for it, disabled.
    void showDialog(QWidget* dialog);
    // The file name in messages ("30.wld").
    QString fileName() const;
    virtual void worldOpened() {}
    const QString& noun() const { return noun_; }
    const EditorText& text() const { return text_; }
    static QString words(const char* text) { return QString::fromLatin1(text); }
    EditorHost& host() { return host_; }
    FileDocument& document() { return document_; }
    Prompts& windowPrompts() override;
    void closeEvent(QCloseEvent* event) override;

    QPushButton* buttonSave_ = nullptr;
    QPushButton* buttonCancel_ = nullptr;
    QPushButton* buttonDone_ = nullptr;

private:
    void onCancel();
    void onDone();
    void leave();
    void openWorld();
    // After a save wrote the file: a file new to a folder whose index does
    // not list it is offered to the index; the world is read again.
    void fileWritten(bool created);

    EditorHost& host_;
    std::unique_ptr<FileDocument> owned_;
    FileDocument& document_;
    EditorText text_;
    QString noun_;
    bool filling_ = false;
    bool leaving_ = false;
    DialogWaiter dialogs_{*this};
    std::shared_ptr<WorldNames> names_;
};

} // namespace marl
