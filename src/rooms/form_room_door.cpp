#include "rooms/form_room_door.h"

#include <QCheckBox>
#include <QFontMetrics>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <algorithm>
#include <optional>

#include "editor/record_pick.h"
#include "editor/world_names.h"
#include "rooms/format/room_record.h"
#include "widgets/prompts.h"
#include "widgets/qt_text.h"
#include "widgets/qt_widgets.h"
#include "widgets/vocab_controls.h"
#include "world/numeric_rule.h"

namespace marl {

namespace {

// Destination and key: -1 (nowhere, no key) to 99999.
constexpr NumericRule kVNumRule{0, true, true, -1, 99999};

} // namespace

using namespace ui;

FormRoomDoor::FormRoomDoor(DialogOwner& owner, Prompts& prompts)
    : OwnedDialog(owner, prompts, DialogQuestions::notSaved(QStringLiteral("Door"))) {
    setObjectName(QStringLiteral("formRoomDoor"));
    setWindowTitle(QStringLiteral("Door Properties"));
    buildLayout();
    connectHandlers();
}

void FormRoomDoor::buildLayout() {
    auto* exitFrame = frame(this, "frameExit", "Exit");
    textFromVNum_ = named(new QLineEdit(exitFrame), "textFromVNum");
    textDirection_ = named(new QLineEdit(exitFrame), "textDirection");
    for (QLineEdit* shown : {textFromVNum_, textDirection_}) {
        shown->setReadOnly(true);
        shown->setFocusPolicy(Qt::NoFocus);
        shown->setFont(fixedFont());
        shown->setFixedWidth(widthForColumns(shown, 7));
        // Shown on the window's colour, so that it does not look like a
        // field to type in.
        QPalette palette = shown->palette();
        palette.setColor(QPalette::Base, palette.color(QPalette::Window));
        shown->setPalette(palette);
    }
    auto* lblTo = named(new QLabel(QStringLiteral("to"), exitFrame), "lblTo");
    textToVNum_ = named(new NumericField(kVNumRule, exitFrame), "textToVNum");
    textToVNum_->setFixedWidth(widthForColumns(textToVNum_, 7));
    buttonPickTo_ =
        named(new RecordPickButton(textToVNum_, WorldKind::Room, exitFrame), "buttonPickTo");
    checkNowhere_ =
        named(new AccessCheckBox(QStringLiteral("Nowhere"), u'w', exitFrame), "checkNowhere");
    nameTo_ =
        named(new VNumNameLabel(textToVNum_, WorldKind::Room, nullptr, exitFrame), "lblToName");
    auto* exitLayout = new QHBoxLayout(exitFrame);
    exitLayout->addWidget(textFromVNum_);
    exitLayout->addWidget(textDirection_);
    exitLayout->addWidget(lblTo);
    exitLayout->addWidget(textToVNum_);
    exitLayout->addWidget(buttonPickTo_);
    exitLayout->addWidget(checkNowhere_);
    exitLayout->addWidget(nameTo_, 1);

    auto* doorFrame = frame(this, "frameDoorFlag", "Door Flag");
    optionNormal_ =
        named(new AccessRadioButton(QStringLiteral("Normal"), u'n', doorFrame), "optionNormal");
    optionDoor_ =
        named(new AccessRadioButton(QStringLiteral("Door"), u'o', doorFrame), "optionDoor");
    optionPickProof_ = named(new AccessRadioButton(QStringLiteral("PickProof"), u'p', doorFrame),
                             "optionPickProof");
    optionNormal_->setChecked(true);
    tabToSelected({optionNormal_, optionDoor_, optionPickProof_});
    auto* doorLayout = new QHBoxLayout(doorFrame);
    doorLayout->addWidget(optionNormal_);
    doorLayout->addWidget(optionDoor_);
    doorLayout->addWidget(optionPickProof_);

    auto* keyFrame = frame(this, "dKeyFrame", "Key");
    textKeyVNum_ = named(new NumericField(kVNumRule, keyFrame), "textKeyVNum");
    textKeyVNum_->setFixedWidth(widthForColumns(textKeyVNum_, 7));
    checkNoKey_ = named(new AccessCheckBox(QStringLiteral("No Key"), u'k', keyFrame), "checkNoKey");
    textKeyVNum_->setEnabled(false);
    checkNoKey_->setEnabled(false);
    buttonPickKey_ =
        named(new RecordPickButton(textKeyVNum_, WorldKind::Object, keyFrame), "buttonPickKey");
    nameKey_ =
        named(new VNumNameLabel(textKeyVNum_, WorldKind::Object, nullptr, keyFrame), "lblKeyName");
    auto* keyLayout = new QGridLayout(keyFrame);
    keyLayout->addWidget(textKeyVNum_, 0, 0);
    keyLayout->addWidget(buttonPickKey_, 0, 1);
    keyLayout->addWidget(checkNoKey_, 0, 2);
    keyLayout->addWidget(nameKey_, 1, 0, 1, 4);
    keyLayout->setColumnStretch(3, 1);

    auto* keywordFrame = frame(this, "frameKeyword", "Keyword List");
    textKeywords_ = named(new QLineEdit(keywordFrame), "textKeywords");
    textKeywords_->setFont(fixedFont());
    guardTildeText(textKeywords_);
    auto* keywordLayout = new QHBoxLayout(keywordFrame);
    keywordLayout->addWidget(textKeywords_);

    auto* descFrame = frame(this, "frameDoorDesc", "Door Description");
    textDesc_ = named(new TildeTextEdit(descFrame), "textDesc");
    textDesc_->setLineWrapMode(QPlainTextEdit::NoWrap);
    textDesc_->setMinimumWidth(widthForColumns(textDesc_, 72) + 20);
    textDesc_->setMinimumHeight(QFontMetrics(textDesc_->font()).lineSpacing() * 5 + 12);
    auto* descLayout = new QVBoxLayout(descFrame);
    descLayout->addWidget(textDesc_);

    auto* commands = makeCommands();

    auto* doorAndKey = new QHBoxLayout;
    doorAndKey->addWidget(doorFrame);
    doorAndKey->addWidget(keyFrame, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(exitFrame);
    layout->addLayout(doorAndKey);
    layout->addWidget(keywordFrame);
    layout->addWidget(descFrame, 1);
    layout->addLayout(commands);

    tabChain({textToVNum_, buttonPickTo_, checkNowhere_, optionNormal_, optionDoor_,
              optionPickProof_, textKeyVNum_, buttonPickKey_, checkNoKey_, textKeywords_, textDesc_,
              buttonClearAll_, buttonCancel_, buttonDone_});
}

void FormRoomDoor::connectHandlers() {
    for (QLineEdit* field : {textToVNum_, textKeyVNum_})
        connect(field, &QLineEdit::textChanged, this, [this] { changed_ = true; });
    connect(checkNowhere_, &QCheckBox::toggled, this, [this](bool checked) {
        onRememberingBox(textToVNum_, &ExitRecord::RememberedTo, checked);
    });
    connect(checkNoKey_, &QCheckBox::toggled, this, [this](bool checked) {
        onRememberingBox(textKeyVNum_, &ExitRecord::RememberedKey, checked);
    });
    connect(optionNormal_, &QRadioButton::toggled, this, [this](bool on) {
        if (on)
            onDoorKind(0);
    });
    connect(optionDoor_, &QRadioButton::toggled, this, [this](bool on) {
        if (on)
            onDoorKind(1);
    });
    connect(optionPickProof_, &QRadioButton::toggled, this, [this](bool on) {
        if (on)
            onDoorKind(2);
    });
    connect(textKeywords_, &QLineEdit::textChanged, this, [this] { changed_ = true; });
    connect(textDesc_, &QPlainTextEdit::textChanged, this, [this] { changed_ = true; });
    connect(buttonDone_, &QPushButton::clicked, this, &FormRoomDoor::onDone);
    connect(buttonCancel_, &QPushButton::clicked, this, &FormRoomDoor::onCancel);
    connect(buttonClearAll_, &QPushButton::clicked, this, [this] { onClearAll(textKeywords_); });
}

void FormRoomDoor::SetupForm(Shown<ExitRecord> shownExit, int exitSlot, const QString& direction,
                             const QString& destination, const QString& fromVNum) {
    exit_ = std::move(shownExit);
    exitSlot_ = exitSlot;
    doorKind_ = 0;
    // A destination that reads as a number is shown in plain decimal; any
    // other text as it stands (Done will refuse it).
    const std::optional<std::int64_t> opened = readNumber(toBytes(destination));
    openedDestination_ = opened ? QString::number(*opened) : destination;

    textFromVNum_->setText(fromVNum);
    textDirection_->setText(direction);
    textToVNum_->setText(openedDestination_);
    if (textToVNum_->text() == QLatin1String("-1"))
        checkNowhere_->setChecked(true);

    const ExitRecord& current = exit();
    switch (current.DoorKind) {
    case 0:
        optionNormal_->setChecked(true);
        break;
    case 1:
        optionDoor_->setChecked(true);
        break;
    case 2:
        optionPickProof_->setChecked(true);
        break;
    default:
        break; // an unknown kind leaves Normal selected
    }

    textKeyVNum_->setText(QString::number(current.KeyVNum));
    if (current.KeyVNum == -1)
        checkNoKey_->setChecked(true);
    textKeywords_->setText(fromBytes(current.Keywords));
    textDesc_->setPlainText(toWidgetText(current.Desc));
    changed_ = false;
}

void FormRoomDoor::onDoorKind(int kind) {
    doorKind_ = static_cast<std::int16_t>(kind);
    if (kind == 0) {
        textKeyVNum_->setEnabled(false);
        checkNoKey_->setEnabled(false);
    } else {
        textKeyVNum_->setEnabled(!checkNoKey_->isChecked());
        checkNoKey_->setEnabled(true);
    }
    changed_ = true;
}

// Nowhere and No Key: checking remembers what the field held (when it reads
// as a number) and shows -1; unchecking brings the remembered value back.
void FormRoomDoor::onRememberingBox(QLineEdit* field, std::int32_t ExitRecord::*remembered,
                                    bool checked) {
    changed_ = true;
    if (checked) {
        if (const auto value = fieldNumber(field))
            exit().*remembered = *value;
        field->setText(QStringLiteral("-1"));
        field->setEnabled(false);
    } else {
        field->setText(QString::number(exit().*remembered));
        field->setEnabled(true);
    }
}

void FormRoomDoor::onDone() {
    if (textKeyVNum_->text().isEmpty())
        textKeyVNum_->setText(QStringLiteral("-1"));
    if (changed_) {
        if (textToVNum_->text().isEmpty()) {
            prompts_.tell(twoLines(QStringLiteral("ToVNum Must Be Supplied"),
                                   QStringLiteral("To Open This Exit")),
                          QStringLiteral("No ToVNum Supplied"));
            return;
        }
        const std::optional<std::int32_t> to = fieldNumber(textToVNum_);
        if (!to) {
            prompts_.tell(twoLines(QStringLiteral("ToVNum Must Be a Number"),
                                   QStringLiteral("To Open This Exit")),
                          notSavedTitle());
            textToVNum_->setFocus();
            return;
        }
        const std::optional<std::int32_t> key = fieldNumber(textKeyVNum_);
        if (doorKind_ != 0 && !key) {
            prompts_.tell(twoLines(QStringLiteral("Key VNum Must Be a Number"),
                                   QStringLiteral("Or Check No Key")),
                          notSavedTitle());
            textKeyVNum_->setFocus();
            return;
        }
        ExitRecord& stored = exit();
        stored.Direction = static_cast<std::int16_t>(exitSlot_);
        stored.Desc = fromWidgetText(textDesc_->toPlainText());
        stored.Keywords = toBytes(textKeywords_->text());
        stored.DoorKind = doorKind_;
        stored.KeyVNum = doorKind_ == 0 ? -1 : *key;
        stored.ToVNum = *to;
        // The dialog opens only on a checked exit with a destination: what it
        // stored has to survive the next save, which wipes an absent exit.
        stored.Absent = false;
        tellOwnerStored();
    }
    finish();
}

void FormRoomDoor::ClearAll() {
    textToVNum_->setText(openedDestination_);
    checkNowhere_->setChecked(false);
    if (textToVNum_->text() == QLatin1String("-1"))
        checkNowhere_->setChecked(true);
    optionNormal_->setChecked(true);
    textKeyVNum_->clear();
    checkNoKey_->setChecked(false);
    textKeyVNum_->setEnabled(false);
    checkNoKey_->setEnabled(false);
    textKeywords_->clear();
    textDesc_->clear();
}

void FormRoomDoor::setWorld(const std::shared_ptr<WorldNames>& names) {
    buttonPickTo_->setNames(names);
    buttonPickKey_->setNames(names);
    nameTo_->setNames(names);
    nameKey_->setNames(names);
}

} // namespace marl
