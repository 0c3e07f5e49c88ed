// The zone editor's layout: the header along the top, the reset table's
// list at the left, the command selected at the right, the commands along
// the bottom.

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>

#include "widgets/qt_text.h"
#include "widgets/qt_widgets.h"
#include "widgets/vocab_controls.h"
#include "zones/form_zone.h"
#include "zones/format/zone_vocabulary.h"

namespace marl {

const std::array<ArgField, 9> kArgFields = {{
    {"textMobile", "Mobile:", ArgKind::Record, WorldKind::Mobile, "M1"},
    {"textObject", "Object:", ArgKind::Record, WorldKind::Object, "O1G1E1P1R2"},
    {"textContainer", "Into container:", ArgKind::Record, WorldKind::Object, "P3"},
    {"textRoom", "Room:", ArgKind::Record, WorldKind::Room, "M3O3D1R1"},
    {"textMaxExisting", "Max existing:", ArgKind::Number, WorldKind::Zone, "M2O2G2E2P2"},
    {"comboWear", "Wear position:", ArgKind::Wear, WorldKind::Zone, "E3"},
    {"optionsDirection", "Direction:", ArgKind::Direction, WorldKind::Zone, "D2"},
    {"optionsDoorState", "Door state:", ArgKind::DoorState, WorldKind::Zone, "D3"},
    {"textComment", "Comment line:", ArgKind::Comment, WorldKind::Zone, "*0"},
}};

namespace {

constexpr NumericRule kVNumRule{6, true};
constexpr NumericRule kCountRule{6, false};

QLabel* caption(QWidget* parent, const char* text, QWidget* buddy = nullptr) {
    auto* label = new QLabel(QString::fromLatin1(text), parent);
    label->setBuddy(buddy);
    return label;
}

} // namespace

void FormZone::buildLayout() {
    // The header.
    QGroupBox* header = ui::frame(this, "frameHeader", QStringLiteral("Zone"));
    labelZone_ = ui::named(new QLabel(header), "labelZone");
    textName_ = ui::named(new QLineEdit(header), "textName");
    guardTildeText(textName_);
    textBottom_ = ui::named(new NumericField(kCountRule, header), "textBottom");
    textTop_ = ui::named(new NumericField(kCountRule, header), "textTop");
    textLifespan_ = ui::named(new NumericField(kCountRule, header), "textLifespan");
    for (NumericField* field : {textBottom_, textTop_, textLifespan_})
        field->setFixedWidth(ui::widthForColumns(field, 8));
    optionsResetMode_ = ui::named(new OptionGroup(kResetModes, 3, header), "optionsResetMode");
    labelOlder_ = ui::named(new QLabel(QStringLiteral("An older file: three numbers, without the "
                                                      "bottom VNum; kept as they are."),
                                       header),
                            "labelOlder");
    auto* top = new QGridLayout(header);
    top->addWidget(labelZone_, 0, 0);
    top->addWidget(caption(header, "Name:", textName_), 0, 1);
    top->addWidget(textName_, 0, 2, 1, 7);
    top->addWidget(caption(header, "Bottom VNum:", textBottom_), 1, 1);
    top->addWidget(textBottom_, 1, 2);
    top->addWidget(caption(header, "Top VNum:", textTop_), 1, 3);
    top->addWidget(textTop_, 1, 4);
    top->addWidget(caption(header, "Lifespan (minutes):", textLifespan_), 1, 5);
    top->addWidget(textLifespan_, 1, 6);
    top->addWidget(caption(header, "Reset:", optionsResetMode_), 1, 7);
    top->addWidget(optionsResetMode_, 1, 8);
    top->addWidget(labelOlder_, 2, 1, 1, 8);
    top->setColumnStretch(9, 1);

    // The reset table.
    listCommands_ = ui::named(new QListWidget(this), "listCommands");
    // Stock lines run past what the window's width leaves the list: they
    // wrap rather than scroll sideways.
    listCommands_->setWordWrap(true);
    listCommands_->setResizeMode(QListView::Adjust);
    listCommands_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    listCommands_->setMinimumWidth(ui::widthForColumns(listCommands_, 50));

    // The command selected.
    QGroupBox* frame = ui::frame(this, "frameCommand", QStringLiteral("Command"));
    frameCommand_ = frame;
    optionsCommand_ = ui::named(new OptionGroup(kZoneCommands, 2, frame), "optionsCommand");
    checkIfFlag_ =
        ui::named(new ui::AccessCheckBox(QStringLiteral("Only if the line before ran"), 'o', frame),
                  "checkIfFlag");
    auto* fields = new QGridLayout;
    int gridRow = 0;
    for (const ArgField& def : kArgFields) {
        ArgRow row;
        row.def = &def;
        switch (def.kind) {
        case ArgKind::Record:
        case ArgKind::Number: {
            auto* edit =
                new NumericField(def.kind == ArgKind::Record ? kVNumRule : kCountRule, frame);
            edit->setFixedWidth(ui::widthForColumns(edit, 8));
            row.field = edit;
            break;
        }
        case ArgKind::Wear: {
            auto* combo = new QComboBox(frame);
            for (const ChoiceDef& position : kWearPositions)
                combo->addItem(QStringLiteral("%1 %2").arg(position.number).arg(position.caption));
            row.field = combo;
            break;
        }
        case ArgKind::Direction:
            row.field = new OptionGroup(kZoneDirections, 3, frame);
            break;
        case ArgKind::DoorState:
            row.field = new OptionGroup(kDoorStates, 1, frame);
            break;
        case ArgKind::Comment: {
            auto* edit = new QLineEdit(frame);
            edit->setFont(fixedFont());
            row.field = edit;
            break;
        }
        }
        row.field->setObjectName(QString::fromLatin1(def.control));
        row.label = caption(frame, def.caption, row.field);
        // A caption stands level with its field, or with the first row of
        // its options.
        const bool options = def.kind == ArgKind::Direction || def.kind == ArgKind::DoorState;
        fields->addWidget(row.label, gridRow, 0, options ? Qt::AlignTop : Qt::AlignVCenter);
        if (def.kind == ArgKind::Record) {
            auto* line = new QHBoxLayout;
            line->addWidget(row.field);
            const QString noun = QString::fromLatin1(def.control + 4);
            row.pick = new QPushButton(QStringLiteral("..."), frame);
            row.pick->setObjectName("buttonPick" + noun);
            row.pick->setAutoDefault(false);
            row.pick->setToolTip(QStringLiteral("Pick from the world's records"));
            row.pick->setFixedWidth(ui::widthForColumns(row.pick, 3));
            row.name =
                new VNumNameLabel(static_cast<QLineEdit*>(row.field), def.record, nullptr, frame);
            row.name->setObjectName("labelName" + noun);
            row.name->setMinimumWidth(ui::widthForColumns(row.name, 24));
            line->addWidget(row.pick);
            line->addWidget(row.name, 1);
            fields->addLayout(line, gridRow, 1);
        } else {
            fields->addWidget(row.field, gridRow, 1,
                              def.kind == ArgKind::Comment ? Qt::Alignment() : Qt::AlignLeft);
        }
        rows_.push_back(row);
        ++gridRow;
    }
    fields->setRowStretch(gridRow, 1);
    fields->setColumnStretch(1, 1);
    auto* right = new QVBoxLayout(frame);
    right->addWidget(optionsCommand_);
    right->addWidget(checkIfFlag_);
    right->addLayout(fields, 1);

    buttonAdd_ = ui::button(this, "buttonAdd", "Add", 'a');
    buttonInsert_ = ui::button(this, "buttonInsert", "Insert", 'i');
    buttonDelete_ = ui::button(this, "buttonDelete", "Delete", 't');
    buttonMoveUp_ = ui::button(this, "buttonMoveUp", "Move Up", 'u');
    buttonMoveDown_ = ui::button(this, "buttonMoveDown", "Move Down", 'w');
    buttonClearAll_ = ui::button(this, "buttonClearAll", "Clear All", 'l');
    buttonAdd_->setToolTip(QStringLiteral("A new command after the line selected"));
    buttonInsert_->setToolTip(QStringLiteral("A new command before the line selected"));

    auto* middle = new QHBoxLayout;
    middle->addWidget(listCommands_, 3);
    middle->addWidget(frame, 2);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(header);
    layout->addLayout(middle, 1);
    layout->addLayout(ui::commandRow(
        {buttonAdd_, buttonInsert_, buttonDelete_, buttonMoveUp_, buttonMoveDown_, buttonClearAll_},
        {buttonSave_, buttonCancel_, buttonDone_}));

    QList<QWidget*> chain{textName_, textBottom_, textTop_, textLifespan_};
    chain +=
        QList<QWidget*>(optionsResetMode_->options().begin(), optionsResetMode_->options().end());
    chain << listCommands_;
    chain += QList<QWidget*>(optionsCommand_->options().begin(), optionsCommand_->options().end());
    chain << checkIfFlag_;
    for (const ArgRow& row : rows_) {
        if (auto* group = qobject_cast<OptionGroup*>(row.field))
            chain += QList<QWidget*>(group->options().begin(), group->options().end());
        else
            chain << row.field;
        if (row.pick)
            chain << row.pick;
    }
    chain << buttonAdd_ << buttonInsert_ << buttonDelete_ << buttonMoveUp_ << buttonMoveDown_
          << buttonClearAll_ << buttonSave_ << buttonCancel_ << buttonDone_;
    ui::tabChain(chain);
    resize(980, 640);
}

} // namespace marl
