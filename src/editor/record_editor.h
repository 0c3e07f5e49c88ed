#pragma once
// The editor window of a table of records, every kind's: the VNum field, the
// record list, New, Save, Edit, a double click, Delete and Clear All, on the
// file-level window (editor_window.h) and a RecordDocument.  A kind is a
// KindEditor<Kind> (below) that builds its layout around the controls made
// here and moves the record shown into the window (parseRecord) and the
// window into the record being stored (storeRecord).

#include <cstdint>
#include <initializer_list>
#include <memory>

#include "editor/editor_window.h"
#include "editor/record_document.h"
#include "editor/shown.h"
#include "world/numeric_rule.h"

class QLayout;
class QListWidget;
class QPushButton;

namespace marl {

class NumericField;

class RecordEditor : public EditorWindow {
    Q_OBJECT
public:
    // `vnumRule` is the rule of the VNum field.
    RecordEditor(EditorHost& host, std::unique_ptr<RecordDocument> document, const EditorText& text,
                 const NumericRule& vnumRule);

    // Shows the record of a slot.
    void LoadRecord(int slot);
    void ClearAll();

    int recordCount() const { return records_.recordCount(); }
    int currentIndex() const { return records_.shownSlot(); }
    QString vnumText() const;

protected:
    // The kind's part: its fields from the record shown, its fields emptied,
    // its fields into the record being stored, and numbers it refuses to
    // store (false after telling the builder).
    virtual void parseRecord() = 0;
    virtual void clearFields() = 0;
    virtual void storeRecord() = 0;
    virtual bool checkFields() { return true; }
    // The values a new record starts with, after its fields were emptied.
    virtual void newFields() {}
    // What the list shows after a slot's VNum (and the delete question):
    // the kind's list name, or what the window knows better (a shop's
    // keeper by name).
    virtual QString listName(int slot) const;
    // The list made again (names learnt since).
    void refillList() { fillList(); }

    void showNewFile(std::int32_t zone) override;
    void showOpenedFile() override;
    // The window's layout: the list's side at the left, the record's at the
    // right with twice its share of the width, and the commands along the
    // bottom, the kind's own (`extra`) after Delete.
    void placeLayout(QLayout* left, QLayout* right, std::initializer_list<QPushButton*> extra = {});

    NumericField* textVNum_ = nullptr;
    QListWidget* listSelect_ = nullptr;
    QPushButton* buttonNew_ = nullptr;
    QPushButton* buttonEdit_ = nullptr;
    QPushButton* buttonDelete_ = nullptr;
    QPushButton* buttonClearAll_ = nullptr;

private:
    void fillList();
    void tellOutOfOrder();
    void fitListToNames();
    int selectedLine() const;
    void startNew();

    void onNew();
    void onSave();
    void onEdit();
    void onDelete();
    void onListClicked();
    void onClearAll();

    RecordDocument& records_;
    int listMinimumWidth_ = 0;
    bool fillingList_ = false;
};

// The editor of one kind (see its entry in src/kinds): its document, and
// ways to the record shown for the kind's part and its dialogs.
template <typename Kind> class KindEditor : public RecordEditor {
public:
    using Record = typename Kind::Record;
    using Document = KindDocument<Kind>;

    KindEditor(EditorHost& host, const NumericRule& vnumRule)
        : RecordEditor(host, std::make_unique<Document>(), Kind::info.editor, vnumRule) {}

    Document& records() { return static_cast<Document&>(document()); }
    const Document& records() const { return const_cast<KindEditor*>(this)->records(); }

protected:
    // The record shown, which parseRecord shows and dialogs write into.
    Record& shown() { return records().shown(); }
    // The record a save stores, which storeRecord fills.
    Record& pending() { return records().pending(); }
    // A dialog's way to the record shown, or a part of it.
    Shown<Record> shownRecord() {
        return Shown<Record>([this]() -> Record& { return shown(); });
    }
    template <typename Part> Shown<Part> shownPart(Part Record::*part) {
        return Shown<Part>([this, part]() -> Part& { return shown().*part; });
    }
};

} // namespace marl
