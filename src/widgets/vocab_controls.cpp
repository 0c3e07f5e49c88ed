#include "widgets/vocab_controls.h"

#include <algorithm>

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QRadioButton>

#include "widgets/qt_text.h"
#include "widgets/qt_widgets.h"

namespace marl {

namespace {

// Rows for `count` entries in `columns` columns, filled column by column.
int rowsFor(std::size_t count, int columns) {
    const int cols = columns < 1 ? 1 : columns;
    return (static_cast<int>(count) + cols - 1) / cols;
}

// The key filter of a rule: digits, `-` where it takes negatives, and no
// longer than its length.  Only what the builder types or pastes is checked.
class RuleValidator : public NumericValidator {
public:
    RuleValidator(const NumericRule& rule, QObject* parent)
        : NumericValidator(rule.allowMinus, parent), maxLength_(rule.maxLength) {}
    State validate(QString& input, int& pos) const override {
        if (maxLength_ > 0 && input.size() > maxLength_)
            return Invalid;
        return NumericValidator::validate(input, pos);
    }

private:
    int maxLength_;
};

} // namespace

FlagGrid::FlagGrid(std::span<const FlagDef> table, int columns, QWidget* parent, int rows)
    : QWidget(parent), table_(table) {
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    rows = std::max(rows, rowsFor(table.size(), columns));
    rows_ = rows;
    columns_ = rowsFor(table.size(), rows);
    for (std::size_t i = 0; i < table.size(); ++i) {
        auto* box = new QCheckBox(QString::fromLatin1(table[i].caption), this);
        box->setObjectName(QString::fromLatin1(table[i].control));
        layout->addWidget(box, static_cast<int>(i) % rows, static_cast<int>(i) / rows);
        connect(box, &QCheckBox::toggled, this, &FlagGrid::changed);
        boxes_.append(box);
    }
}

void FlagGrid::addCorner(QWidget* widget) {
    widget->setParent(this);
    auto* grid = static_cast<QGridLayout*>(layout());
    const bool free = static_cast<int>(table_.size()) < rows_ * columns_;
    grid->addWidget(widget, free ? rows_ - 1 : rows_, columns_ - 1,
                    Qt::AlignRight | Qt::AlignBottom);
}

void FlagGrid::setFlagText(std::string_view text) {
    const FlagBits bits = flagBits(text);
    unboxed_ = bits & ~tableBits(table_);
    for (qsizetype i = 0; i < boxes_.size(); ++i) {
        const int bit = flagBit(table_[static_cast<std::size_t>(i)].letter);
        boxes_[i]->setChecked(bit >= 0 && (bits >> bit & 1u));
    }
}

FlagBits FlagGrid::bits() const {
    FlagBits bits = unboxed_;
    for (qsizetype i = 0; i < boxes_.size(); ++i)
        if (const int bit = flagBit(table_[static_cast<std::size_t>(i)].letter);
            bit >= 0 && boxes_[i]->isChecked())
            bits |= FlagBits{1} << bit;
    return bits;
}

std::string FlagGrid::flagText() const {
    return marl::flagText(table_, bits());
}

void FlagGrid::uncheckAll() {
    for (QCheckBox* box : boxes_)
        box->setChecked(false);
}

OptionGroup::OptionGroup(std::span<const ChoiceDef> table, int columns, QWidget* parent,
                         int cellsPerOption, int headerRows)
    : QWidget(parent), group_(new QButtonGroup(this)), grid_(new QGridLayout(this)),
      rows_(rowsFor(table.size(), columns)), cellsPerOption_(cellsPerOption),
      headerRows_(headerRows) {
    grid_->setContentsMargins(0, 0, 0, 0);
    for (std::size_t i = 0; i < table.size(); ++i) {
        auto* option = new QRadioButton(QString::fromLatin1(table[i].caption), this);
        option->setObjectName(QString::fromLatin1(table[i].control));
        group_->addButton(option);
        numbers_.append(table[i].number);
        const auto [row, column] = cellOf(static_cast<int>(i));
        grid_->addWidget(option, row, column);
        options_.append(option);
    }
    if (!table.empty()) {
        options_.front()->setChecked(true);
        number_ = table.front().number;
    }
    ui::tabToSelected({options_.begin(), options_.end()});
    // The numbers are kept beside the options, not as the group's ids: the
    // group takes an id of -1 ("No Spell") for "give it an id of your own".
    connect(group_, &QButtonGroup::buttonToggled, this, [this](QAbstractButton* option, bool on) {
        const qsizetype index = options_.indexOf(option);
        if (!on || index < 0)
            return;
        number_ = numbers_[index];
        emit picked(number_);
    });
}

std::pair<int, int> OptionGroup::cellOf(int index) const {
    return {headerRows_ + index % rows_, index / rows_ * cellsPerOption_};
}

void OptionGroup::setNumber(int number) {
    if (const qsizetype index = numbers_.indexOf(number); index >= 0) {
        options_[index]->setChecked(true);
        number_ = number;
        return;
    }
    // No option stands for it: none is shown selected, the number is kept.
    group_->setExclusive(false);
    for (QRadioButton* option : options_)
        option->setChecked(false);
    group_->setExclusive(true);
    number_ = number;
}

NumericField::NumericField(const NumericRule& rule, QWidget* parent)
    : QLineEdit(parent), rule_(rule) {
    setValidator(new RuleValidator(rule, this));
    setFont(fixedFont());
    if (rule_.hasRange)
        connect(this, &QLineEdit::textEdited, this, [this](const QString& text) {
            const std::string ranged = applyRange(toBytes(text), rule_.min, rule_.max);
            if (ranged != toBytes(text))
                setText(fromBytes(ranged)); // runs the change handlers again
        });
}

std::optional<std::int32_t> fieldNumber(const QLineEdit* field) {
    const std::optional<std::int64_t> value = readNumber(toBytes(field->text()));
    if (!value || *value < INT32_MIN || *value > INT32_MAX)
        return std::nullopt;
    return static_cast<std::int32_t>(*value);
}

} // namespace marl
