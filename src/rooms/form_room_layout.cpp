// The room editor's controls: the room list on the left, the room's texts on
// the right, and below them the sector, exits and flags side by side, with
// the commands along the bottom.  The list and the description take what
// the window gains when it grows.

#include <QCheckBox>
#include <QFontMetrics>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QVBoxLayout>

#include "editor/field_table.h"
#include "editor/record_pick.h"
#include "editor/world_names.h"
#include "rooms/form_room.h"
#include "widgets/qt_text.h"
#include "widgets/qt_widgets.h"
#include "widgets/vocab_controls.h"

namespace marl {

using namespace ui;

namespace {

// Destinations: negatives allowed, -1 (nowhere) to 99999.
constexpr NumericRule kDestinationRule{0, true, true, -1, 99999};

} // namespace

void FormRoom::buildLayout() {
    // VNum and name, each in its frame, made from the field table.
    const std::vector<QGroupBox*> frames = makeFields(this, kRoomFields, fields_, textVNum_);
    textName_ = fields_[1];

    // Left: VNum and the room list.
    auto* selectFrame = frame(this, "frameRoomSelect", "Room Select");
    listSelect_->setParent(selectFrame);
    auto* selectLayout = new QVBoxLayout(selectFrame);
    selectLayout->addWidget(listSelect_);

    auto* left = new QVBoxLayout;
    left->addWidget(frames[0]);
    left->addWidget(selectFrame, 1);

    // Right: name and description.
    auto* descFrame = frame(this, "frameDesc", "Room Description");
    textDesc_ = named(new TildeTextEdit(descFrame), "textDesc");
    textDesc_->setLineWrapMode(QPlainTextEdit::NoWrap);
    // Stock room descriptions fill lines of up to 80 characters: all of them
    // show without scrolling sideways.
    textDesc_->setMinimumWidth(widthForColumns(textDesc_, 80) +
                               textDesc_->verticalScrollBar()->sizeHint().width());
    textDesc_->setMinimumHeight(QFontMetrics(textDesc_->font()).lineSpacing() * 8 + 12);
    auto* descLayout = new QVBoxLayout(descFrame);
    descLayout->addWidget(textDesc_);

    // Sector type: one option per sector, in one column as tall as the exits.
    auto* sectorFrame = frame(this, "frameSecType", "Sector Type");
    sectors_ = new OptionGroup(kSectorTypes, 1, sectorFrame);
    auto* sectorLayout = new QVBoxLayout(sectorFrame);
    sectorLayout->addWidget(sectors_);
    sectorLayout->addStretch();

    // Exits: check box, destination and "D" button, one row per exit.
    auto* exitsFrame = frame(this, "frameExits", "Exits");
    auto* exitsLayout = new QGridLayout(exitsFrame);
    for (const ExitDef& def : kExits) {
        auto* check = named(new QCheckBox(QString::fromLatin1(def.caption), exitsFrame), def.check);
        auto* field = named(new NumericField(kDestinationRule, exitsFrame), def.toField);
        field->setFixedWidth(widthForColumns(field, 7));
        field->setEnabled(false);
        auto* door = button(exitsFrame, def.button, "D");
        door->setFixedWidth(QFontMetrics(door->font()).horizontalAdvance(QStringLiteral("DD")) +
                            16);
        door->setEnabled(false);
        door->setToolTip(
            QStringLiteral("Door properties of the %1 exit").arg(QString::fromLatin1(def.caption)));
        const QString caption = QString::fromLatin1(def.caption);
        auto* pick = new RecordPickButton(field, WorldKind::Room, exitsFrame);
        pick->setObjectName("buttonPick" + caption);
        auto* name = new VNumNameLabel(field, WorldKind::Room, nullptr, exitsFrame);
        name->setObjectName("lbl" + caption + "Name");
        // Room for most names at the window's least size; longer ones elide.
        name->setMinimumWidth(QFontMetrics(name->font()).averageCharWidth() * 17);
        exitChecks_[def.slot] = check;
        exitFields_[def.slot] = field;
        exitButtons_[def.slot] = door;
        exitPicks_[def.slot] = pick;
        exitNames_[def.slot] = name;
        exitsLayout->addWidget(check, def.slot, 0);
        exitsLayout->addWidget(field, def.slot, 1);
        exitsLayout->addWidget(pick, def.slot, 2);
        exitsLayout->addWidget(door, def.slot, 3);
        exitsLayout->addWidget(name, def.slot, 4);
    }
    exitsLayout->setColumnStretch(4, 1);
    buttonClearExits_ = button(exitsFrame, "buttonClearExits", "Clear Exits", 'i');
    exitsLayout->addWidget(buttonClearExits_, kExitSlots, 0, 1, 4);
    exitsLayout->setRowStretch(kExitSlots + 1, 1);

    // Room flags in two columns.
    auto* bitsFrame = frame(this, "frameBitV", "Room Bitvector");
    flags_ = new FlagGrid(kRoomFlags, 2, bitsFrame);
    buttonClearBits_ = button(bitsFrame, "buttonClearBits", "Clear Bits", 'b');
    auto* bitsLayout = new QVBoxLayout(bitsFrame);
    bitsLayout->addWidget(flags_);
    bitsLayout->addWidget(buttonClearBits_);
    bitsLayout->addStretch();

    auto* settings = new QHBoxLayout;
    settings->addWidget(sectorFrame);
    // The exits take the width the window has to spare: their destinations'
    // names show beside them.
    settings->addWidget(exitsFrame, 1);
    settings->addWidget(bitsFrame);

    auto* right = new QVBoxLayout;
    right->addWidget(frames[1]);
    right->addWidget(descFrame, 1);
    right->addLayout(settings);

    buttonExtraDescs_ = button(this, "buttonExtraDescs", "Extra Descriptions", 'x');
    placeLayout(left, right, {buttonExtraDescs_});

    setTabOrderChain();
}

// Tab follows the reading order: the room's fields from the top, then the
// commands, and the list last.
void FormRoom::setTabOrderChain() {
    QList<QWidget*> chain{textVNum_, textName_, textDesc_};
    // The sector options are one stop: Tab enters the selected one and the
    // arrow keys move between them.
    for (QRadioButton* option : sectors_->options())
        chain.append(option);
    for (int slot = 0; slot < kExitSlots; ++slot)
        chain << exitChecks_[slot] << exitFields_[slot] << exitPicks_[slot] << exitButtons_[slot];
    chain.append(buttonClearExits_);
    for (QCheckBox* check : flags_->boxes())
        chain.append(check);
    chain << buttonClearBits_ << buttonNew_ << buttonSave_ << buttonEdit_ << buttonDelete_
          << buttonExtraDescs_ << buttonClearAll_ << buttonCancel_ << buttonDone_ << listSelect_;
    tabChain(chain);
}

// The exits' names and pick lists come from the world of the file opened.
void FormRoom::worldOpened() {
    for (int slot = 0; slot < kExitSlots; ++slot) {
        exitPicks_[slot]->setNames(worldNames());
        exitNames_[slot]->setNames(worldNames());
    }
}

} // namespace marl
