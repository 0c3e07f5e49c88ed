// The room editor's controls, built from the vocabulary tables: the room list
// on the left, the room's texts on the right, and below them the sector,
// exits and flags side by side, with the commands along the bottom.

#include <QButtonGroup>
#include <QCheckBox>
#include <QFontMetrics>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "rooms/form_room.h"
#include "widgets/qt_text.h"
#include "widgets/qt_widgets.h"

namespace marl {

using namespace ui;

void FormRoom::buildLayout() {
    // Left: VNum and the room list.
    auto* vnumFrame = frame(this, "frameVNum", "VNum");
    textVNum_ = new QLineEdit(vnumFrame);
    textVNum_->setObjectName(QStringLiteral("textVNum"));
    makeNumeric(textVNum_, true, 5);
    textVNum_->setFixedWidth(widthForColumns(textVNum_, 7));
    auto* vnumLayout = new QHBoxLayout(vnumFrame);
    vnumLayout->addWidget(textVNum_);
    vnumLayout->addStretch();

    auto* selectFrame = frame(this, "frameRoomSelect", "Room Select");
    listRoomSelect_ = new QListWidget(selectFrame);
    listRoomSelect_->setObjectName(QStringLiteral("listRoomSelect"));
    listRoomSelect_->setFont(fixedFont());
    listRoomSelect_->setSelectionMode(QAbstractItemView::SingleSelection);
    listRoomSelect_->setMinimumWidth(widthForColumns(listRoomSelect_, 50));
    auto* selectLayout = new QVBoxLayout(selectFrame);
    selectLayout->addWidget(listRoomSelect_);

    auto* left = new QVBoxLayout;
    left->addWidget(vnumFrame);
    left->addWidget(selectFrame, 1);

    // Right: name and description.
    auto* nameFrame = frame(this, "frameName", "Room Name");
    textName_ = new QLineEdit(nameFrame);
    textName_->setObjectName(QStringLiteral("textName"));
    textName_->setFont(fixedFont());
    guardTildeText(textName_);
    auto* nameLayout = new QHBoxLayout(nameFrame);
    nameLayout->addWidget(textName_);

    auto* descFrame = frame(this, "frameDesc", "Room Description");
    textDesc_ = new TildeTextEdit(descFrame);
    textDesc_->setObjectName(QStringLiteral("textDesc"));
    textDesc_->setLineWrapMode(QPlainTextEdit::NoWrap);
    textDesc_->setMinimumWidth(widthForColumns(textDesc_, 80) + 20);
    textDesc_->setMinimumHeight(QFontMetrics(textDesc_->font()).lineSpacing() * 9 + 12);
    auto* descLayout = new QVBoxLayout(descFrame);
    descLayout->addWidget(textDesc_);

    // Sector type: one option per sector, in two columns.
    auto* sectorFrame = frame(this, "frameSecType", "Sector Type");
    sectorGroup_ = new QButtonGroup(this);
    auto* sectorLayout = new QGridLayout(sectorFrame);
    const int sectorRows = (static_cast<int>(kSectorTypes.size()) + 1) / 2;
    for (std::size_t i = 0; i < kSectorTypes.size(); ++i) {
        const ChoiceDef& def = kSectorTypes[i];
        auto* option = new QRadioButton(QString::fromLatin1(def.caption), sectorFrame);
        option->setObjectName(QString::fromLatin1(def.control));
        sectorGroup_->addButton(option, def.number);
        sectorOptions_[i] = option;
        sectorLayout->addWidget(option, static_cast<int>(i) % sectorRows,
                                static_cast<int>(i) / sectorRows);
    }
    sectorLayout->setRowStretch(sectorRows, 1);
    sectorOptions_[0]->setChecked(true);

    // Exits: check box, destination and "D" button, one row per exit.
    auto* exitsFrame = frame(this, "frameExits", "Exits");
    auto* exitsLayout = new QGridLayout(exitsFrame);
    for (const ExitDef& def : kExits) {
        auto* check = new QCheckBox(QString::fromLatin1(def.caption), exitsFrame);
        check->setObjectName(QString::fromLatin1(def.check));
        auto* field = new QLineEdit(exitsFrame);
        field->setObjectName(QString::fromLatin1(def.toField));
        makeNumeric(field, true, 0);
        field->setFixedWidth(widthForColumns(field, 7));
        field->setEnabled(false);
        auto* door = button(exitsFrame, def.button, "D");
        door->setFixedWidth(QFontMetrics(door->font()).horizontalAdvance(QStringLiteral("DD")) +
                            16);
        door->setEnabled(false);
        door->setToolTip(
            QStringLiteral("Door properties of the %1 exit").arg(QString::fromLatin1(def.caption)));
        exitChecks_[def.slot] = check;
        exitFields_[def.slot] = field;
        exitButtons_[def.slot] = door;
        exitsLayout->addWidget(check, def.slot, 0);
        exitsLayout->addWidget(field, def.slot, 1);
        exitsLayout->addWidget(door, def.slot, 2);
    }
    buttonClearExits_ = button(exitsFrame, "buttonClearExits", "Clear Exits", 'i');
    exitsLayout->addWidget(buttonClearExits_, kExitSlots, 0, 1, 3);
    exitsLayout->setRowStretch(kExitSlots + 1, 1);

    // Room flags in two columns.
    auto* bitsFrame = frame(this, "frameBitV", "Room Bitvector");
    auto* bitsLayout = new QGridLayout(bitsFrame);
    const int bitRows = (static_cast<int>(kRoomFlags.size()) + 1) / 2;
    for (std::size_t i = 0; i < kRoomFlags.size(); ++i) {
        const FlagDef& def = kRoomFlags[i];
        auto* check = new QCheckBox(QString::fromLatin1(def.caption), bitsFrame);
        check->setObjectName(QString::fromLatin1(def.control));
        bitChecks_[i] = check;
        bitsLayout->addWidget(check, static_cast<int>(i) % bitRows, static_cast<int>(i) / bitRows);
    }
    buttonClearBits_ = button(bitsFrame, "buttonClearBits", "Clear Bits", 'b');
    bitsLayout->addWidget(buttonClearBits_, bitRows, 0, 1, 2);
    bitsLayout->setRowStretch(bitRows + 1, 1);

    auto* settings = new QHBoxLayout;
    settings->addWidget(sectorFrame);
    settings->addWidget(exitsFrame);
    settings->addWidget(bitsFrame, 1);

    auto* right = new QVBoxLayout;
    right->addWidget(nameFrame);
    right->addWidget(descFrame, 1);
    right->addLayout(settings);

    auto* body = new QHBoxLayout;
    body->addLayout(left);
    body->addLayout(right, 1);

    // Commands along the bottom; leaving the window sits at the right.
    buttonNew_ = button(this, "buttonNew", "New", 'n');
    buttonSave_ = button(this, "buttonSave", "Save", 's');
    buttonEdit_ = button(this, "buttonEdit", "Edit", 'e');
    buttonDelete_ = button(this, "buttonDelete", "Delete", 't');
    buttonExtraDescs_ = button(this, "buttonExtraDescs", "Extra Descriptions", 'x');
    buttonClearAll_ = button(this, "buttonClearAll", "Clear All", 'l');
    buttonCancel_ = button(this, "buttonCancel", "Cancel", 'c');
    buttonDone_ = button(this, "buttonDone", "Done", 'd');
    buttonSave_->setEnabled(false);
    buttonEdit_->setEnabled(false);
    buttonDelete_->setEnabled(false);
    buttonNew_->setToolTip(QStringLiteral("A new room (Ctrl+N)"));
    buttonSave_->setToolTip(QStringLiteral("Store the room and write the file (Ctrl+S)"));
    buttonEdit_->setToolTip(
        QStringLiteral("Show the room selected in the list (Enter in the list)"));
    buttonCancel_->setToolTip(QStringLiteral("Close without saving (Esc)"));

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(body, 1);
    layout->addLayout(commandRow(
        {buttonNew_, buttonSave_, buttonEdit_, buttonDelete_, buttonExtraDescs_, buttonClearAll_},
        {buttonCancel_, buttonDone_}));

    setTabOrderChain();
}

void FormRoom::setTabOrderChain() {
    QList<QWidget*> chain{textVNum_, listRoomSelect_, textName_, textDesc_};
    // The sector options are one stop: Tab enters the selected one and the
    // arrow keys move between them.
    for (QRadioButton* option : sectorOptions_)
        chain.append(option);
    for (int slot = 0; slot < kExitSlots; ++slot)
        chain << exitChecks_[slot] << exitFields_[slot] << exitButtons_[slot];
    chain.append(buttonClearExits_);
    for (QCheckBox* check : bitChecks_)
        chain.append(check);
    chain << buttonClearBits_ << buttonNew_ << buttonSave_ << buttonEdit_ << buttonDelete_
          << buttonExtraDescs_ << buttonClearAll_ << buttonCancel_ << buttonDone_;
    tabChain(chain);
}

} // namespace marl
