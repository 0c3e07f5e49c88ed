#pragma once
// Controls built from the vocabulary tables and the numeric field rules, so
// that every editor window shows flags, option groups and numbers the same
// way: a grid of flag check boxes, a group of options, and a numeric field.

#include <QLineEdit>
#include <QWidget>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "world/numeric_rule.h"
#include "world/vocabulary.h"

class QButtonGroup;
class QGridLayout;
class QCheckBox;
class QRadioButton;

namespace marl {

// One check box per table entry, filled column by column.  It is set from a
// flag text and read back as one; flags set in the text that have no box are
// kept and written after the boxes' letters.
class FlagGrid : public QWidget {
    Q_OBJECT
public:
    // The boxes fill `columns` columns top to bottom, in at least `rows` rows.
    FlagGrid(std::span<const FlagDef> table, int columns, QWidget* parent, int rows = 0);
    // `widget` (a Clear Bits) in the bottom cell of the last column, where
    // the boxes leave it free; below the boxes where they do not.
    void addCorner(QWidget* widget);

    // Shows a record's flag text; nothing counts as the builder's change.
    void setFlagText(std::string_view text);
    std::string flagText() const;
    FlagBits bits() const;
    // Unchecks every box; flags without a box stay.
    void uncheckAll();
    const QList<QCheckBox*>& boxes() const { return boxes_; }

signals:
    // Any box toggled, by the builder or the program.
    void changed();

private:
    std::span<const FlagDef> table_;
    QList<QCheckBox*> boxes_;
    FlagBits unboxed_ = 0;
    int rows_ = 1;
    int columns_ = 1;
};

// One option per table entry, filled column by column.  A number no option
// stands for selects none and is kept until the builder picks an option.
// A table that shows more beside each option gives each option
// `cellsPerOption` cells of the grid, the option in the first, and leaves
// `headerRows` rows above them for column headers.
class OptionGroup : public QWidget {
    Q_OBJECT
public:
    OptionGroup(std::span<const ChoiceDef> table, int columns, QWidget* parent,
                int cellsPerOption = 1, int headerRows = 0);

    void setNumber(int number);
    int number() const { return number_; }
    const QList<QRadioButton*>& options() const { return options_; }
    // The grid the options stand in, to put what goes beside them.
    QGridLayout* grid() const { return grid_; }
    // The row and column of option `index` in the grid.
    std::pair<int, int> cellOf(int index) const;

signals:
    // An option became selected, by the builder or the program.
    void picked(int number);

private:
    QButtonGroup* group_;
    QGridLayout* grid_;
    QList<QRadioButton*> options_;
    QList<int> numbers_; // of the options, in their order
    int rows_ = 1;
    int cellsPerOption_ = 1;
    int headerRows_ = 0;
    int number_ = 0;
};

// A numeric entry field made from a rule: its key filter and length hold for
// what is typed or pasted, and its range rule runs on every change the
// builder makes.  What the program puts in it is shown as it stands.
class NumericField : public QLineEdit {
    Q_OBJECT
public:
    NumericField(const NumericRule& rule, QWidget* parent);
    const NumericRule& rule() const { return rule_; }

private:
    NumericRule rule_;
};

// The one reading of a field's number: the text as a whole number within
// 32 bits, or nothing (empty, a lone `-`, `1-2`, or too large).
std::optional<std::int32_t> fieldNumber(const QLineEdit* field);

} // namespace marl
