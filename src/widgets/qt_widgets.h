#pragma once
// Small builders shared by the editor windows and their dialogs: named
// frames and buttons, the row of commands, the tab order, Enter in a list,
// and widths counted in characters of a widget's font.

#include <QFontMetrics>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QShortcut>
#include <functional>

#include "widgets/qt_access_keys.h"

namespace marl::ui {

inline QGroupBox* frame(QWidget* parent, const char* name, const QString& caption) {
    auto* box = new QGroupBox(caption, parent);
    box->setObjectName(QString::fromLatin1(name));
    return box;
}

// A command button that Enter in a field does not press, with `key` (a
// letter of the caption) as its access key.
inline QPushButton* button(QWidget* parent, const char* name, const char* caption, char key = 0) {
    auto* push = new AccessButton(QString::fromLatin1(caption), QLatin1Char(key), parent);
    push->setObjectName(QString::fromLatin1(name));
    push->setAutoDefault(false);
    return push;
}

// The commands along the bottom of a window: `left` from the left edge, and
// `right` (those that leave the window) at the right edge.
inline QHBoxLayout* commandRow(const QList<QPushButton*>& left,
                               const QList<QPushButton*>& right = {}) {
    auto* row = new QHBoxLayout;
    for (QPushButton* push : left)
        row->addWidget(push);
    row->addStretch();
    for (QPushButton* push : right)
        row->addWidget(push);
    return row;
}

// Tab moves through `chain` in its order.
inline void tabChain(const QList<QWidget*>& chain) {
    for (qsizetype i = 0; i + 1 < chain.size(); ++i)
        QWidget::setTabOrder(chain[i], chain[i + 1]);
}

// Enter in `list` runs `edit` on the line the cursor is on, as a double
// click does, choosing that line when none is selected.
inline void editOnEnter(QListWidget* list, const std::function<void()>& edit) {
    for (int key : {Qt::Key_Return, Qt::Key_Enter})
        QObject::connect(
            new QShortcut(QKeySequence(key), list, nullptr, nullptr, Qt::WidgetShortcut),
            &QShortcut::activated, list, [list, edit] {
                if (list->selectedItems().isEmpty() && list->currentItem())
                    list->currentItem()->setSelected(true);
                edit();
            });
}

// Tab reaches a group of options at its selected one (the first when none
// is selected); the arrow keys and clicks still reach them all.
inline void tabToSelected(const QList<QAbstractButton*>& options) {
    const auto update = [options] {
        bool any = false;
        for (QAbstractButton* option : options)
            any = any || option->isChecked();
        for (QAbstractButton* option : options)
            option->setFocusPolicy(option->isChecked() || (!any && option == options.front())
                                       ? Qt::StrongFocus
                                       : Qt::ClickFocus);
    };
    for (QAbstractButton* option : options)
        QObject::connect(option, &QAbstractButton::toggled, option, update);
    update();
}

template <typename Widget> Widget* named(Widget* widget, const char* name) {
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}

// The width of one character of the widget's font.
inline int charWidth(const QWidget* widget) {
    return QFontMetrics(widget->font()).horizontalAdvance(QLatin1Char('0'));
}

// Wide enough for `columns` characters of the widget's font.
inline int widthForColumns(const QWidget* widget, int columns) {
    return charWidth(widget) * columns + 14;
}

} // namespace marl::ui
