#pragma once
// Lists whose lines are "caption<tab>value" (the editors' "VNum<tab>name",
// the affects' "location<tab>modifier") draw the values at one column
// instead of at the next tab stop: the lists use the fixed-pitch font, so
// padding lines the values up and saves the width of an 80-pixel stop.

#include <QStyledItemDelegate>

namespace marl {

// `line` as drawn: the caption padded to `column` - 1 characters, a space,
// then the value.  A caption that long or longer keeps one space; a line
// without a tab is drawn as it stands.
QString columnLine(const QString& line, int column);

class ColumnDelegate : public QStyledItemDelegate {
public:
    ColumnDelegate(int column, QObject* parent) : QStyledItemDelegate(parent), column_(column) {}

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    int column_;
};

} // namespace marl
