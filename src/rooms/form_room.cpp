#include "rooms/form_room.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QCloseEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>

#include "dialogs/extra_descs_dialog.h"
#include "rooms/form_room_door.h"
#include "shell/prompts.h"
#include "world/numeric_rule.h"
#include "widgets/qt_text.h"
#include "widgets/qt_widgets.h"

namespace marl {

namespace {

const QString kNotSavedTitle = QStringLiteral("Room Not Saved");
const QString kNotSavedLine = QStringLiteral("Changes to Room Not Saved.");

} // namespace

FormRoom::FormRoom(EditorHost& host) : host_(host) {
    setObjectName(QStringLiteral("formRoom"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QStringLiteral("Room Editor"));
    buildLayout();
    connectHandlers();
}

FormRoom::~FormRoom() {
    // A dialog still open (the main window is being torn down) goes with us.
    delete dialog_.data();
}

QString FormRoom::vnumText() const {
    return textVNum_->text();
}

void FormRoom::connectHandlers() {
    connect(textVNum_, &QLineEdit::textChanged, this, &FormRoom::onVNumOrNameChanged);
    connect(textName_, &QLineEdit::textChanged, this, &FormRoom::onVNumOrNameChanged);
    connect(textDesc_, &QPlainTextEdit::textChanged, this, &FormRoom::onDescChanged);

    connect(sectorGroup_, &QButtonGroup::idToggled, this, [this](int id, bool checked) {
        if (!checked)
            return;
        HasChanged();
        currentSector_ = static_cast<std::int16_t>(id);
    });
    for (QCheckBox* check : bitChecks_)
        connect(check, &QCheckBox::toggled, this, [this] { HasChanged(); });

    for (int slot = 0; slot < kExitSlots; ++slot) {
        // `toggled` runs for the program's changes as well as the builder's;
        // only the builder's click (`clicked`) changes the absent mark.
        connect(exitChecks_[slot], &QCheckBox::toggled, this,
                [this, slot](bool checked) { onExitToggled(slot, checked); });
        connect(exitChecks_[slot], &QCheckBox::clicked, this,
                [this, slot](bool checked) { onExitClicked(slot, checked); });
        connect(exitFields_[slot], &QLineEdit::textChanged, this,
                [this, slot] { onDestinationChanged(slot); });
        connect(exitFields_[slot], &QLineEdit::textEdited, this,
                [this, slot] { onDestinationEdited(slot); });
        connect(exitButtons_[slot], &QPushButton::clicked, this,
                [this, slot] { onExitButton(slot); });
    }

    connect(listRoomSelect_, &QListWidget::itemSelectionChanged, this, &FormRoom::onListClicked);
    connect(listRoomSelect_, &QListWidget::itemClicked, this, &FormRoom::onListClicked);
    connect(listRoomSelect_, &QListWidget::itemDoubleClicked, this, &FormRoom::onEdit);
    ui::editOnEnter(listRoomSelect_, [this] { onEdit(); });

    connect(buttonNew_, &QPushButton::clicked, this, &FormRoom::onNew);
    connect(buttonSave_, &QPushButton::clicked, this, &FormRoom::SaveRooms);
    connect(buttonEdit_, &QPushButton::clicked, this, &FormRoom::onEdit);
    connect(buttonDelete_, &QPushButton::clicked, this, &FormRoom::onDelete);
    connect(buttonExtraDescs_, &QPushButton::clicked, this, &FormRoom::onExtraDescs);
    connect(buttonClearAll_, &QPushButton::clicked, this, &FormRoom::onClearAll);
    connect(buttonClearExits_, &QPushButton::clicked, this, [this] {
        HasChanged();
        ClearExits();
    });
    connect(buttonClearBits_, &QPushButton::clicked, this, [this] {
        HasChanged();
        ClearBitV();
    });
    connect(buttonCancel_, &QPushButton::clicked, this, &FormRoom::onCancel);
    connect(buttonDone_, &QPushButton::clicked, this, &FormRoom::onDone);

    connect(new QShortcut(QKeySequence::Save, this), &QShortcut::activated, this, [this] {
        if (buttonSave_->isEnabled())
            SaveRooms();
    });
    connect(new QShortcut(QKeySequence::New, this), &QShortcut::activated, this, &FormRoom::onNew);
    connect(new QShortcut(QKeySequence(Qt::Key_Escape), this), &QShortcut::activated, this,
            &FormRoom::onCancel);
}

// ---- Procedures the main window calls -------------------------------------

bool FormRoom::openZone(std::int32_t zone, QString& error) {
    if (!LoadRooms(zone, &error))
        return false;
    LoadRoom(0);
    return true;
}

void FormRoom::NewRoom(std::int32_t zone) {
    ClearRoomTable();
    fillList();
    recordCount_ = 0;
    currentIndex_ = 0;
    zoneNumber_ = zone;
    ClearAll();
    textVNum_->setText(QString::number(zone) + QStringLiteral("00"));
    changed_ = false;
}

void FormRoom::LoadRoom(int slot) {
    currentIndex_ = slot;
    ClearAll();
    const RoomRecord& room = roomTable()[static_cast<std::size_t>(slot)];
    textVNum_->setText(QString::number(room.VNum));
    textName_->setText(fromBytes(room.Name));
    textDesc_->setPlainText(toWidgetText(room.Desc));
    ParseExits();
    ParseSecType();
    ParseBitV();
    setWindowTitle(QStringLiteral("Room Editor [%1/99]").arg(slot));
    buttonSave_->setEnabled(false);
    changed_ = false;
}

// ---- Room table to window ------------------------------------------------

void FormRoom::ParseExits() {
    const RoomRecord& room = roomTable()[static_cast<std::size_t>(currentIndex_)];
    for (int slot = 0; slot < kExitSlots; ++slot) {
        const ExitRecord& exit = room.Exits[static_cast<std::size_t>(slot)];
        if (exit.ToVNum == 0)
            continue;
        exitChecks_[slot]->setChecked(true);
        exitFields_[slot]->setText(QString::number(exit.ToVNum));
    }
}

void FormRoom::ParseSecType() {
    const RoomRecord& room = roomTable()[static_cast<std::size_t>(currentIndex_)];
    // A number outside the table selects nothing here: the option selected
    // before stays, and the record keeps its number until it is stored.
    if (QAbstractButton* option = sectorGroup_->button(room.SecType))
        option->setChecked(true);
}

void FormRoom::ParseBitV() {
    const RoomRecord& room = roomTable()[static_cast<std::size_t>(currentIndex_)];
    for (std::size_t i = 0; i < kRoomFlags.size(); ++i)
        if (hasFlag(room.BitV, kRoomFlags[i].letter))
            bitChecks_[i]->setChecked(true);
}

void FormRoom::fillList() {
    fillingList_ = true;
    listRoomSelect_->clear();
    for (int slot = 0; slot < recordCount_; ++slot) {
        const RoomRecord& room = roomTable()[static_cast<std::size_t>(slot)];
        listRoomSelect_->addItem(QString::number(room.VNum) + QLatin1Char('\t') +
                                 fromBytes(room.Name));
    }
    fillingList_ = false;
}

// ---- Change tracking and clearing -----------------------------------------

void FormRoom::HasChanged() {
    changed_ = true;
    buttonSave_->setEnabled(true);
}

void FormRoom::ClearAll() {
    HasChanged();
    buttonSave_->setEnabled(false);
    buttonEdit_->setEnabled(false);
    buttonDelete_->setEnabled(false);
    textName_->clear();
    textDesc_->clear();
    ClearExits();
    for (QLineEdit* field : exitFields_)
        field->clear();
    sectorOptions_[0]->setChecked(true);
    currentSector_ = 0;
    ClearBitV();
    textVNum_->clear();
}

void FormRoom::ClearExits() {
    HasChanged();
    // setChecked runs the toggled handler, which disables the field and the
    // button; the absent marks in the table stay as they are.
    for (QCheckBox* check : exitChecks_)
        check->setChecked(false);
}

void FormRoom::ClearBitV() {
    HasChanged();
    for (QCheckBox* check : bitChecks_)
        check->setChecked(false);
}

// ---- Change handlers -------------------------------------------------------

void FormRoom::onVNumOrNameChanged() {
    HasChanged();
    buttonSave_->setEnabled(!textVNum_->text().isEmpty() && !textName_->text().isEmpty());
}

void FormRoom::onDescChanged() {
    HasChanged();
    buttonSave_->setEnabled(!textDesc_->toPlainText().isEmpty());
}

void FormRoom::onExitToggled(int slot, bool checked) {
    HasChanged();
    exitFields_[slot]->setEnabled(checked);
    exitButtons_[slot]->setEnabled(checked && !exitFields_[slot]->text().isEmpty());
}

void FormRoom::onExitClicked(int slot, bool checked) {
    ExitRecord& exit = roomTable()[static_cast<std::size_t>(currentIndex_)].Exits[slot];
    if (!checked)
        exit.Absent = true;
    else if (!exitFields_[slot]->text().isEmpty())
        exit.Absent = false;
}

void FormRoom::onDestinationChanged(int slot) {
    HasChanged();
    QLineEdit* field = exitFields_[slot];
    exitButtons_[slot]->setEnabled(exitChecks_[slot]->isChecked() && !field->text().isEmpty());
    clampToRange(field, -1, 99999); // a replacement runs this handler again
}

void FormRoom::onDestinationEdited(int slot) {
    // A destination typed into a checked exit makes the exit present, so that
    // what the exit dialog stores for it is kept by the next save.
    if (exitChecks_[slot]->isChecked() && !exitFields_[slot]->text().isEmpty())
        roomTable()[static_cast<std::size_t>(currentIndex_)].Exits[slot].Absent = false;
}

// ---- Commands --------------------------------------------------------------

void FormRoom::onNew() {
    if (!isEnabled())
        return;
    if (changed_ &&
        !host_.prompts().ask(twoLines(kNotSavedLine, QStringLiteral("Discard Changes?")),
                             kNotSavedTitle))
        return;
    if (recordCount_ >= kMaxRecordsForNew) {
        host_.prompts().tell(QStringLiteral("Zone Already Contains 99 Rooms"));
        return;
    }
    currentIndex_ = recordCount_;
    ClearAll();
    textVNum_->setText(QString::number(zoneNumber_));
    textVNum_->setFocus();
    changed_ = false;
}

void FormRoom::onEdit() {
    const QList<QListWidgetItem*> selected = listRoomSelect_->selectedItems();
    if (selected.size() != 1)
        return; // nothing chosen: nothing to show
    LoadRoom(listRoomSelect_->row(selected.first()));
}

void FormRoom::onListClicked() {
    if (fillingList_)
        return;
    const bool one = listRoomSelect_->selectedItems().size() == 1;
    if (one) {
        buttonEdit_->setEnabled(true);
        buttonDelete_->setEnabled(true);
    } else {
        buttonSave_->setEnabled(false);
        buttonEdit_->setEnabled(false);
        buttonDelete_->setEnabled(false);
    }
}

void FormRoom::onClearAll() {
    if (!host_.prompts().ask(QStringLiteral("Really Clear This Form?"),
                             QStringLiteral("Confirm Clear")))
        return;
    ClearAll();
    textVNum_->setFocus();
}

void FormRoom::onCancel() {
    if (!isEnabled())
        return;
    if (changed_ && !host_.prompts().ask(twoLines(kNotSavedLine, QStringLiteral("Cancel Anyway?")),
                                         kNotSavedTitle))
        return;
    leave();
}

void FormRoom::onDone() {
    if (changed_) {
        host_.prompts().tell(twoLines(kNotSavedLine, QStringLiteral("Either Save or Use Cancel.")),
                             kNotSavedTitle);
        return;
    }
    leave();
}

void FormRoom::leave() {
    leaving_ = true;
    close();
}

void FormRoom::closeEvent(QCloseEvent* event) {
    if (dialog_ && dialog_->isVisible()) {
        // The window waits for its dialog; that one has to close first.
        event->ignore();
        dialog_->raise();
        dialog_->activateWindow();
        return;
    }
    // The frame's close button acts as Cancel.
    if (!leaving_ && changed_ &&
        !host_.prompts().ask(twoLines(kNotSavedLine, QStringLiteral("Cancel Anyway?")),
                             kNotSavedTitle)) {
        event->ignore();
        return;
    }
    leaving_ = true;
    ClearRoomTable();
    event->accept();
    host_.editorClosed();
}

// ---- Dialogs ---------------------------------------------------------------

void FormRoom::showDialog(QWidget* dialog) {
    dialog_ = dialog;
    setEnabled(false);
    dialog->show();
    dialog->raise();
    dialog->activateWindow();
}

void FormRoom::onExitButton(int slot) {
    auto* door = new FormRoomDoor(*this, host_.prompts());
    door->SetupForm(currentIndex_, slot, QString::fromLatin1(kExits[slot].caption),
                    exitFields_[slot]->text());
    showDialog(door);
}

void FormRoom::onExtraDescs() {
    ExtraDescsVariant variant;
    variant.formName = QStringLiteral("formRoomExtraDescs");
    variant.frameCaption = QStringLiteral("Room Extra Descriptions");
    variant.pairs = [](int record) -> ExtraDescList& {
        return roomTable()[static_cast<std::size_t>(record)].ExtraDescs;
    };
    variant.hasChanged = [this] { HasChanged(); };
    variant.hasChangedWhenPending = true;
    auto* dialog = new ExtraDescsDialog(std::move(variant), this, host_.prompts());
    dialog->SetupForm(currentIndex_);
    showDialog(dialog);
}

} // namespace marl
