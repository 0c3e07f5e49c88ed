#include "widgets/column_delegate.h"

namespace marl {

QString columnLine(const QString& line, int column) {
    const qsizetype tab = line.indexOf(QLatin1Char('\t'));
    if (tab < 0)
        return line;
    return line.left(tab).leftJustified(column - 1) + QLatin1Char(' ') + line.mid(tab + 1);
}

void ColumnDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    option->text = columnLine(option->text, column_);
}

} // namespace marl
