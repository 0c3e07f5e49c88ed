#pragma once
// Small builders shared by the editor windows and their dialogs: named
// frames and buttons, and widths counted in characters of a widget's font.

#include <QFontMetrics>
#include <QGroupBox>

#include "world/qt_access_keys.h"

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
