#pragma once
// The editor window every kind shares: the record list, New, Save, Edit, a
// double click, Delete, Clear All, Cancel, Done and the frame's close, the
// guard messages named after the kind ("Changes to Room Not Saved."), and
// the dialogs opened on the shown record.  The records themselves live in a
// ZoneDocument, which saves and deletes.
//
// A kind is a subclass that builds its layout around the controls made here
// and moves a record into the window (parseRecord) and back (storeRecord).

#include <QPointer>
#include <QWidget>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <span>
#include <vector>

#include "editor/dialog_owner.h"
#include "editor/dialog_waiter.h"
#include "editor/editor_host.h"
#include "editor/zone_document.h"
#include "kinds/kind_info.h"
#include "widgets/prompts.h"
#include "world/form_text.h"
#include "world/numeric_rule.h"

class QLineEdit;
class QGroupBox;
class QLayout;
class QListWidget;
class QPushButton;

namespace marl {

class NumericField;

class EditorWindow : public QWidget, public ZoneEditor, public DialogOwner, public PromptsWindow {
    Q_OBJECT
public:
    // `text` holds the kind's window name, title and messages (the kind's
    // noun is its window name after "form": "formRoom" edits a "Room");
    // `vnumRule` is the rule of the VNum field.
    EditorWindow(EditorHost& host, std::unique_ptr<ZoneDocument> document, const EditorText& text,
                 const NumericRule& vnumRule);
    ~EditorWindow() override;

    // ZoneEditor: how the main window starts the editor.
    QWidget* window() override { return this; }
    void newZone(std::int32_t zone) override { newZone(zone, false); }
    void newZone(std::int32_t zone, bool keepFile);
    bool openZone(std::int32_t zone, QString& error) override;

    // DialogOwner: what the kind's dialogs report to.
    QWidget* ownerWindow() override { return this; }
    void dialogStored() override;

    // Shows the record of a slot.
    void LoadRecord(int slot);
    void HasChanged();
    void ClearAll();

    ZoneDocument& document() { return document_; }
    std::int32_t zoneNumber() const { return document_.ZoneNumber; }
    int recordCount() const { return document_.RecordCount; }
    int currentIndex() const { return document_.CurrentIndex; }
    bool changed() const { return document_.Changed; }
    QString vnumText() const;

protected:
    // The kind's part: its fields from the shown record, its fields emptied,
    // its fields into the record being stored, and numbers it refuses to
    // store (false after telling the builder).
    virtual void parseRecord() = 0;
    virtual void clearFields() = 0;
    virtual void storeRecord() = 0;
    virtual bool checkFields() { return true; }
    // The values a new record starts with, after its fields were emptied.
    virtual void newFields() {}

    // For a kind whose fields come from a table (`edits` in the table's
    // order): whether every field that must hold text does, and the
    // refusal of the first field that is empty without leave or holds a
    // number that does not read as one, told to the builder by its caption.
    static bool fieldsFilled(std::span<const FieldDef> defs, std::span<QLineEdit* const> edits);
    bool checkFieldTable(std::span<const FieldDef> defs, std::span<QLineEdit* const> edits);
    // The entry fields of a field table, into `edits` in the table's order
    // (its first row is the VNum field made here), each in a frame of its
    // own captioned from the table unless `unframed` says otherwise; returns
    // the frames by row, null for a field left unframed.
    std::vector<QGroupBox*> makeFields(std::span<const FieldDef> defs, std::span<QLineEdit*> edits,
                                       const std::function<bool(const FieldDef&)>& unframed = {});
    // The window's layout: the list's side at the left, the record's at the
    // right with twice its share of the width, and the commands along the
    // bottom, the kind's own (`extra`) after Delete.
    void placeLayout(QLayout* left, QLayout* right, std::initializer_list<QPushButton*> extra = {});
    // Opens a dialog on the shown record and waits for it, disabled.
    void showDialog(QWidget* dialog);
    // The file name in messages ("30.wld").
    QString fileName() const;
    const QString& noun() const { return noun_; }
    EditorHost& host() { return host_; }
    Prompts& windowPrompts() override;
    void closeEvent(QCloseEvent* event) override;

    NumericField* textVNum_ = nullptr;
    QListWidget* listSelect_ = nullptr;
    QPushButton* buttonNew_ = nullptr;
    QPushButton* buttonSave_ = nullptr;
    QPushButton* buttonEdit_ = nullptr;
    QPushButton* buttonDelete_ = nullptr;
    QPushButton* buttonClearAll_ = nullptr;
    QPushButton* buttonCancel_ = nullptr;
    QPushButton* buttonDone_ = nullptr;

private:
    void fillList();
    void tellOutOfOrder();
    void fitListToNames();
    void syncFolder();
    // "Changes to Room Not Saved." and `second`, titled "Room Not Saved".
    bool askNotSaved(const QString& second);
    static QString words(const char* text) { return QString::fromLatin1(text); }
    // Asks before unsaved changes are dropped; on Yes the shown record goes
    // back to how it was shown.
    bool mayDiscard();
    int selectedLine() const;
    void startNew();
    void tellFailure(SaveResult result, const QString& title, const std::string& error);

    void onNew();
    void onSave();
    void onEdit();
    void onDelete();
    void onListClicked();
    void onClearAll();
    void onCancel();
    void onDone();
    void leave();

    EditorHost& host_;
    std::unique_ptr<ZoneDocument> owned_;
    ZoneDocument& document_;
    EditorText text_;
    QString noun_;
    int listMinimumWidth_ = 0;
    bool fillingList_ = false;
    bool leaving_ = false;
    DialogWaiter dialogs_{*this};
};

} // namespace marl
