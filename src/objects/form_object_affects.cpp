#include "objects/form_object_affects.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "objects/format/object_checks.h"
#include "objects/format/object_record.h"
#include "objects/format/object_vocabulary.h"
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
    entries_ = new EntryList(listObjectAffects_, buttons_, [this] { onEdit(); });
    connect(buttons_.add, &QPushButton::clicked, this, &FormObjectAffects::onAdd);
    connect(buttons_.update, &QPushButton::clicked, this, &FormObjectAffects::onUpdate);
    connect(buttons_.edit, &QPushButton::clicked, this, &FormObjectAffects::onEdit);
    connect(buttons_.remove, &QPushButton::clicked, this, &FormObjectAffects::onRemove);
    connect(buttons_.removeAll, &QPushButton::clicked, this, &FormObjectAffects::onRemoveAll);
    connect(buttons_.clearAll, &QPushButton::clicked, this,
            [this] { onClearAll(locations_->options().front()); });
    connect(buttons_.done, &QPushButton::clicked, this, &FormObjectAffects::onDone);
    connect(buttons_.cancel, &QPushButton::clicked, this, &FormObjectAffects::onCancel);
}

// Every affect the object holds is listed, as the file will hold them: one
// of location 0 shows as "None" and keeps its place, since the server reads
// every `A` block.
void FormObjectAffects::SetupForm(Shown<ObjectRecord> object) {
    object_ = std::move(object);
    const auto& affects = object_->Affects;
    count_ = static_cast<int>(affects.count());
    QStringList lines;
    for (int line = 0; line < count_; ++line)
        lines.append(affectLine(affects[static_cast<std::size_t>(line)]));
    entries_->fill(lines);
    ClearAll();
    locations_->options().front()->setFocus();
    changed_ = false;
}

bool FormObjectAffects::entryReady() const {
    return locations_->number() != kAffectLocationNone && fieldNumber(textValue_).has_value();
}

ObjectAffect FormObjectAffects::entry() const {
    ObjectAffect affect;
    affect.Location = static_cast<std::int16_t>(locations_->number());
    if (const ChoiceDef* location = findChoice(kAffectLocations, affect.Location))
        affect.LocationName = location->caption;
    affect.Modifier = fieldNumber(textValue_).value_or(0);
    return affect;
}

void FormObjectAffects::refreshStoreButtons() {
    const bool ready = entryReady();
    // The server refuses to boot an object with a seventh affect.
    buttons_.add->setEnabled(ready && !editing() && count_ < kServerAffects);
    buttons_.update->setEnabled(ready && editing());
}

// "None" takes the modifier away with it; any other location lets one be
// typed.
void FormObjectAffects::onLocationPicked(int number) {
    changed_ = true;
    if (number == kAffectLocationNone)
        textValue_->clear();
    textValue_->setEnabled(number != kAffectLocationNone);
    refreshStoreButtons();
}

void FormObjectAffects::onValueChanged() {
    changed_ = true;
    refreshStoreButtons();
}

// A location no option stands for selects none and is kept: Update stores
// it as it was unless the builder picks another.
void FormObjectAffects::onEdit() {
    const int line = entries_->beginEdit();
    if (line < 0)
        return;
    const ObjectAffect& affect = object_->Affects[static_cast<std::size_t>(line)];
    locations_->setNumber(affect.Location);
    textValue_->setText(QString::number(affect.Modifier));
    textValue_->setEnabled(affect.Location != kAffectLocationNone);
    setWindowTitle(countCaption(line));
    refreshStoreButtons();
    changed_ = false;
}

void FormObjectAffects::onAdd() {
    if (!entryReady() || count_ >= kServerAffects || editing())
        return;
    auto& affects = object_->Affects;
    affects[static_cast<std::size_t>(count_)] = entry();
    affects.setCount(static_cast<std::size_t>(count_ + 1));
    listObjectAffects_->addItem(affectLine(affects[static_cast<std::size_t>(count_)]));
    ++count_;
    ClearAll();
    changed_ = false;
    // Ready for the next affect: its location first.
    locations_->options().front()->setFocus();
    tellOwnerStored();
}

// Writes back in place: into the affect Edit loaded, whatever line is
// selected.  Without one nothing is stored and the fields stay as typed.
void FormObjectAffects::onUpdate() {
    const int line = entries_->editedLine();
    if (line < 0 || !entryReady())
        return;
    auto& affects = object_->Affects;
    affects[static_cast<std::size_t>(line)] = entry();
    ClearAll();
    entries_->setLine(line, affectLine(affects[static_cast<std::size_t>(line)]));
    changed_ = false;
    listObjectAffects_->setFocus();
    tellOwnerStored();
}

// The affects after the one removed move up a place, so the file keeps
// their order.
void FormObjectAffects::onRemove() {
    const int line = entries_->selectedLine();
    if (line < 0)
        return;
    removeEntry(object_->Affects, line);
    --count_;
    if (entries_->removeLine(line)) {
        // An edit of another affect goes on with what is picked and typed.
        buttons_.edit->setEnabled(false);
        buttons_.remove->setEnabled(false);
        setWindowTitle(countCaption(entries_->editedLine()));
        tellOwnerStored();
        return;
    }
    ClearAll();
    changed_ = false;
    tellOwnerStored();
}

void FormObjectAffects::onRemoveAll() {
    object_->Affects.clear();
    count_ = 0;
    entries_->removeAll();
    ClearAll();
    changed_ = false;
    tellOwnerStored();
}

// Emptying the fields also ends an edit in progress: what is picked next is
// a new affect, so Add comes back.
void FormObjectAffects::ClearAll() {
    entries_->endEdit();
    entries_->clearSelection();
    locations_->setNumber(kAffectLocationNone);
    textValue_->clear();
    textValue_->setEnabled(false);
    buttons_.add->setEnabled(false);
    buttons_.update->setEnabled(false);
    buttons_.edit->setEnabled(false);
    buttons_.remove->setEnabled(false);
    buttons_.removeAll->setEnabled(count_ > 0);
    setWindowTitle(countCaption(0));
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
