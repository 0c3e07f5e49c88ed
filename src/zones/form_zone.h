#pragma once
// The zone editor (`formZone`): a `.zon` file's header and its reset table.
// The table is a list in words (zone_lines.h); the line selected is shown
// in edit fields, only those its command has, and what the builder changes
// there goes into that command at once, written field by field with its
// trailing comment kept, while every other line keeps its bytes.  Add puts
// a new command after the line selected, Insert before it; a new command's
// trailing comment is the name of the record it names.  Save refuses what
// the server refuses, naming the line, and asks before saving what the
// server only logs.  Layout in form_zone_layout.cpp.

#include <QPointer>
#include <array>
#include <memory>
#include <vector>

#include "editor/editor_window.h"
#include "editor/world_names.h"
#include "zones/zone_document.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace marl {

class NumericField;
class OptionGroup;

// The edit fields of a command, one row each (see kArgFields).
enum class ArgKind { Record, Number, Wear, Direction, DoorState, Comment };
struct ArgField {
    const char* control; // the field's objectName ("textMobile")
    const char* caption; // its label
    ArgKind kind;
    WorldKind record;  // what a Record field names
    const char* takes; // the commands that have it and the argument it is: "M1O3"
};
extern const std::array<ArgField, 9> kArgFields;

class FormZone : public EditorWindow {
    Q_OBJECT
public:
    explicit FormZone(EditorHost& host);

    ZoneDocument& zoneDocument() { return static_cast<ZoneDocument&>(document()); }
    const ZoneRecord& zone() { return zoneDocument().zone(); }
    // The line selected, or -1, and how many lines the table has.
    int currentIndex() const { return current_; }
    int recordCount() const { return static_cast<int>(states_.size()); }
    // The names of the zone's world, loading or loaded.

protected:
    void showNewFile(std::int32_t zone) override;
    void showOpenedFile() override;
    void worldOpened() override;
    void closeEvent(QCloseEvent* event) override;

private:
    // What the window keeps beside each command: the fields left empty or
    // not a number (by argument 1-3), and whether the editor made it.
    struct LineState {
        std::array<bool, 4> missing{};
        bool fresh = false;
    };
    // One row of edit fields.
    struct ArgRow {
        const ArgField* def = nullptr;
        QLabel* label = nullptr;
        QWidget* field = nullptr; // a NumericField, QComboBox, OptionGroup or QLineEdit
        QLabel* name = nullptr;   // beside a Record field
        QPushButton* pick = nullptr;
    };

    void buildLayout();
    void connectFields();
    void showHeader();
    void fillList();
    void refreshLines();
    void select(int line);
    void showCommand();
    void applyHeader();
    void applyField(const ArgRow& row);
    void applyKind(int letter);
    void commandChanged(ZoneCommand& command, const ZoneCommand& before);
    void insertAt(int at);
    void pick(const ArgRow& row);

    void onAdd() { insertAt(current_ < 0 ? int(zone().Commands.size()) : current_ + 1); }
    void onInsert() { insertAt(current_ < 0 ? 0 : current_); }
    void onDelete();
    void onMove(int by);
    void onClearAll();
    void onSave();
    bool refused();
    bool warnedAndAsked();

    std::vector<LineState> states_;
    std::array<bool, 3> headerMissing_{}; // bottom, top, lifespan
    int current_ = -1;
    bool showing_ = false; // the window fills its own fields
    bool waiting_ = false; // Save waits for the world to load

    QLabel* labelZone_ = nullptr;
    QLineEdit* textName_ = nullptr;
    NumericField* textBottom_ = nullptr;
    NumericField* textTop_ = nullptr;
    NumericField* textLifespan_ = nullptr;
    OptionGroup* optionsResetMode_ = nullptr;
    QLabel* labelOlder_ = nullptr;
    QListWidget* listCommands_ = nullptr;
    QWidget* frameCommand_ = nullptr;
    OptionGroup* optionsCommand_ = nullptr;
    QCheckBox* checkIfFlag_ = nullptr;
    std::vector<ArgRow> rows_;
    QPushButton* buttonAdd_ = nullptr;
    QPushButton* buttonInsert_ = nullptr;
    QPushButton* buttonDelete_ = nullptr;
    QPushButton* buttonMoveUp_ = nullptr;
    QPushButton* buttonMoveDown_ = nullptr;
    QPushButton* buttonClearAll_ = nullptr;
};

} // namespace marl
