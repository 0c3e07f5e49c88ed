#include "objects/form_object_affects.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "objects/format/object_checks.h"
#include "objects/format/object_record.h"
#include "objects/object_vocabulary.h"
#include "widgets/column_delegate.h"
#include "widgets/entry_list.h"
#include "widgets/prompts.h"
#include "widgets/qt_text.h"
#include "widgets/qt_widgets.h"
#include "widgets/vocab_controls.h"

namespace marl {

using namespace ui;

namespace {

// The longest location caption ("SavingBreath") and a space before the
// modifier: the list draws the modifiers at this column.
constexpr int kModifierColumn = 13;

QString countCaption(int line) {
    return QStringLiteral("%1 [%2/%3]")
        .arg(QString::fromLatin1(kObjectAffectsDialog.title))
        .arg(line)
        .arg(kServerAffects);
}

} // namespace

QString affectLine(const ObjectAffect& affect) {
    const ChoiceDef* location = findChoice(kAffectLocations, affect.Location);
    return (location ? QString::fromLatin1(location->caption) : QString::number(affect.Location)) +
           QLatin1Char('\t') + QString::number(affect.Modifier);
}

FormObjectAffects::FormObjectAffects(DialogOwner& owner, Prompts& prompts)
    : OwnedDialog(owner, prompts, DialogQuestions::of(kObjectAffectsDialog)) {
    setObjectName(QString::fromLatin1(kObjectAffectsDialog.form));
    setWindowTitle(QString::fromLatin1(kObjectAffectsDialog.title));
    buildLayout();
    connectHandlers();
    ClearAll();
    changed_ = false;
}

void FormObjectAffects::buildLayout() {
    auto* typeFrame =
        frame(this, kAffectLocationFrame, QString::fromLatin1(kAffectLocationFrameCaption));
    locations_ = new OptionGroup(kAffectLocations, 3, typeFrame);
    auto* typeLayout = new QVBoxLayout(typeFrame);
    typeLayout->addWidget(locations_);

    const FieldDef& value = kAffectModifierField;
    auto* valueFrame = frame(this, value.frame, QString::fromLatin1(value.caption));
    textValue_ = named(new NumericField(value.rule, valueFrame), value.control);
    textValue_->setFixedWidth(widthForColumns(textValue_, 11)); // -2147483648
    auto* valueLayout = new QHBoxLayout(valueFrame);
    valueLayout->addWidget(textValue_);
    valueLayout->addStretch();

    auto* listFrame = frame(this, kObjectAffectsDialog.frame,
                            QString::fromLatin1(kObjectAffectsDialog.frameCaption));
    listObjectAffects_ = named(new QListWidget(listFrame), kAffectList);
    listObjectAffects_->setFont(fixedFont());
    listObjectAffects_->setItemDelegate(new ColumnDelegate(kModifierColumn, listObjectAffects_));
    listObjectAffects_->setSelectionMode(QAbstractItemView::SingleSelection);
    listObjectAffects_->setMinimumWidth(widthForColumns(listObjectAffects_, kModifierColumn + 11) +
                                        20);
    auto* listLayout = new QVBoxLayout(listFrame);
    listLayout->addWidget(listObjectAffects_);

    // Enter in the value closes as Done does.
    buttons_ = EntryCommands::make(this);

    // The affect being made on the left, the affects made on the right.
    auto* fields = new QVBoxLayout;
    fields->addWidget(typeFrame);
    fields->addWidget(valueFrame);
    fields->addStretch();
    auto* body = new QHBoxLayout;
    body->addLayout(fields);
    body->addWidget(listFrame, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(body, 1);
    layout->addLayout(buttons_.row());

    // The options are one stop: Tab enters the selected one, arrows move.
    QList<QWidget*> chain;
    for (QRadioButton* option : locations_->options())
        chain.append(option);
    chain << textValue_ << listObjectAffects_;
    tabChain(chain + buttons_.tabOrder());
}

void FormObjectAffects::connectHandlers() {
    connect(locations_, &OptionGroup::picked, this, &FormObjectAffects::onLocationPicked);
    connect(textValue_, &QLineEdit::textChanged, this, &FormObjectAffects::onValueChanged);
    EntryFields<ObjectAffect> fields;
    fields.ready = [this] { return entryReady(); };
    fields.read = [this] {
        return ObjectAffect{static_cast<std::int16_t>(locations_->number()),
                            fieldNumber(textValue_).value_or(0)};
    };
    // A location no option stands for selects none and is kept: Update
    // stores it as it was unless the builder picks another.
    fields.show = [this](const ObjectAffect& affect) {
        locations_->setNumber(affect.Location);
        textValue_->setText(QString::number(affect.Modifier));
        textValue_->setEnabled(affect.Location != kAffectLocationNone);
    };
    fields.clear = [this] {
        affects_->lines().clearSelection();
        locations_->setNumber(kAffectLocationNone);
        textValue_->clear();
        textValue_->setEnabled(false);
        setWindowTitle(countCaption(0));
    };
    fields.line = affectLine;
    fields.editing = [this](int line) { setWindowTitle(countCaption(line)); };
    // Ready for the next affect: its location first.
    fields.added = [this] { locations_->options().front()->setFocus(); };
    fields.updated = [this] { listObjectAffects_->setFocus(); };
    // The server refuses to boot an object with a seventh affect.
    affects_ = std::make_unique<EntryController<ObjectAffect, kAffectSlots>>(
        listObjectAffects_, buttons_, std::move(fields), kServerAffects, changed_,
        [this] { tellOwnerStored(); });
    connect(buttons_.clearAll, &QPushButton::clicked, this,
            [this] { onClearAll(locations_->options().front()); });
    connect(buttons_.done, &QPushButton::clicked, this, &FormObjectAffects::onDone);
    connect(buttons_.cancel, &QPushButton::clicked, this, &FormObjectAffects::onCancel);
}

// Every affect the object holds is listed, as the file will hold them: one
// of location 0 shows as "None" and keeps its place, since the server reads
// every `A` block.
void FormObjectAffects::SetupForm(Shown<ObjectRecord> object) {
    affects_->setup(Shown<SlotList<ObjectAffect, kAffectSlots>>(
        [object]() -> SlotList<ObjectAffect, kAffectSlots>& { return object->Affects; }));
    locations_->options().front()->setFocus();
    changed_ = false;
}

// An affect may be stored with a location other than "None" and a modifier
// that reads as a number.
bool FormObjectAffects::entryReady() const {
    return locations_->number() != kAffectLocationNone && fieldNumber(textValue_).has_value();
}

// "None" takes the modifier away with it; any other location lets one be
// typed.
void FormObjectAffects::onLocationPicked(int number) {
    changed_ = true;
    if (number == kAffectLocationNone)
        textValue_->clear();
    textValue_->setEnabled(number != kAffectLocationNone);
    affects_->refresh(entryReady());
}

void FormObjectAffects::onValueChanged() {
    changed_ = true;
    affects_->refresh(entryReady());
}

// Emptying the fields also ends an edit in progress: what is picked next is
// a new affect, so Add comes back.
void FormObjectAffects::ClearAll() {
    affects_->clear();
}

void FormObjectAffects::onDone() {
    if (!changed_) {
        finish();
        return;
    }
    prompts_.tell(twoLines(notSavedLine(), QStringLiteral("Either Add/Update or Use Cancel.")),
                  notSavedTitle());
}

} // namespace marl
