#pragma once
// Small builders shared by the room editor's windows: named frames and
// buttons, and field widths counted in characters of the field's font.

#include <QFontMetrics>
#include <QGroupBox>
#include <QPushButton>

namespace marl::roomform {

inline QGroupBox* frame(QWidget* parent, const char* name, const char* caption) {
    auto* box = new QGroupBox(QString::fromLatin1(caption), parent);
    box->setObjectName(QString::fromLatin1(name));
    return box;
}

// A command button that Enter in a field does not press.
inline QPushButton* button(QWidget* parent, const char* name, const char* caption) {
    auto* push = new QPushButton(QString::fromLatin1(caption), parent);
    push->setObjectName(QString::fromLatin1(name));
    push->setAutoDefault(false);
    return push;
}

template <typename Widget> Widget* named(Widget* widget, const char* name) {
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}

// Wide enough for `columns` characters of the widget's font.
inline int widthForColumns(const QWidget* widget, int columns) {
    return QFontMetrics(widget->font()).horizontalAdvance(QLatin1Char('0')) * columns + 14;
}

} // namespace marl::roomform
