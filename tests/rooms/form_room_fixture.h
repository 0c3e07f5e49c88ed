#pragma once
// What the room editor's GUI tests share: a host standing in for the main
// window over a temporary folder, a small zone of our own, and helpers that
// drive the real widgets by their object names.

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPointer>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QtTest>

#include "rooms/form_room.h"
#include "rooms/room_record.h"
#include "test_support.h"

namespace marl::test {

// The main window's side: the zone's folder, the prompts and the closing.
class RoomHost : public EditorHost {
public:
    RoomHost() : folder_(dir.path() + QLatin1Char('/')) {}
    QString fileDir() const override { return folder_; }
    Prompts& prompts() override { return script; }
    void editorClosed() override { ++closed; }

    QString path(const QString& name) const { return folder_ + name; }
    void setFolder(const QString& folder) { folder_ = folder; }

    QTemporaryDir dir;
    ScriptedPrompts script;
    int closed = 0;

private:
    QString folder_;
};

// Zone 95: three rooms with exits, a door, extra descriptions and flags.
inline std::string smallZone() {
    return lf({"#9500", "The Landing~", "A wooden landing.", "~", "95 0 2",
               "D0", "A track north.", "~", "~", "0 -1 9501",
               "D1", "The river.", "~", "~", "0 -1 -1",
               "E", "bell~", "A green bell.", "~", "S",
               "#9501", "Reed Cottages~", "Low cottages.", "Smoke curls.", "~", "95 ad 1",
               "D3", "A stout door.", "~", "door stout~", "1 9510 9502",
               "S",
               "#9502", "The Kitchen~", "A warm kitchen.", "~", "95 k 9",
               "D1", "~", "door~", "2 -1 9501",
               "E", "ladder~", "Worn rungs.", "~", "E", "pot~", "Stew.", "~", "S", "$"});
}

// A zone of `count` rooms, 9500 upward, with no exits.
inline std::string zoneOfRooms(int count) {
    std::string text;
    for (int i = 0; i < count; ++i)
        text += crlf({"#" + std::to_string(9500 + i), "Room " + std::to_string(i) + "~", "", "~",
                      "95 0 0", "S"});
    return text + crlf({"$"});
}

template <typename Widget> Widget* find(const QWidget* parent, const QString& name) {
    auto* widget = parent->findChild<Widget*>(name);
    if (!widget)
        qFatal("no widget named %s", qPrintable(name));
    return widget;
}

// The visible top-level window of that name, or null.
inline QWidget* topLevel(const QString& name) {
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (widget->objectName() == name && widget->isVisible())
            return widget;
    return nullptr;
}

inline void click(QAbstractButton* button) {
    // Check boxes and options take the click on their box, near the left edge.
    const bool box = qobject_cast<QCheckBox*>(button) || qobject_cast<QRadioButton*>(button);
    const QPoint at = box ? QPoint(8, button->height() / 2) : button->rect().center();
    QTest::mouseClick(button, Qt::LeftButton, {}, at);
}

// Types the keys one by one; a line break is the Return key.
inline void type(QWidget* field, const QString& keys) {
    const QStringList lines = keys.split(QLatin1Char('\n'));
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (i > 0)
            QTest::keyClick(field, Qt::Key_Return);
        for (QChar c : lines[i]) {
            if (c.unicode() < 0x80)
                QTest::keyClick(field, c.toLatin1());
            else  // no key of its own: a key event carrying the character
                QTest::sendKeyEvent(QTest::Click, field, Qt::Key_unknown, QString(c), {});
        }
    }
}

inline void erase(QWidget* field) {
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(field, Qt::Key_Delete);
}

inline void clickLine(QListWidget* list, int line) {
    const QRect rect = list->visualItemRect(list->item(line));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, rect.center());
}

inline void doubleClickLine(QListWidget* list, int line) {
    // A double click reaches a widget as press, release, double click, release.
    const QPoint at = list->visualItemRect(list->item(line)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseRelease(list->viewport(), Qt::LeftButton, {}, at);
}

// Runs a script of builder actions in a window, one per entry:
//   "name:type:text", "name:erase", "name:backspace", "name:click".
inline void run(QWidget* window, const QStringList& steps) {
    for (const QString& step : steps) {
        const QStringList part = step.split(QLatin1Char(':'));
        QWidget* widget = find<QWidget>(window, part[0]);
        if (part[1] == QLatin1String("type"))
            type(widget, part.mid(2).join(QLatin1Char(':')));
        else if (part[1] == QLatin1String("erase"))
            erase(widget);
        else if (part[1] == QLatin1String("backspace"))
            QTest::keyClick(widget, Qt::Key_Backspace);
        else if (part[1] == QLatin1String("click"))
            click(qobject_cast<QAbstractButton*>(widget));
        else
            qFatal("unknown step %s", qPrintable(step));
    }
}

inline QStringList lines(const QListWidget* list) {
    QStringList out;
    for (int i = 0; i < list->count(); ++i)
        out.append(list->item(i)->text());
    return out;
}

// A room editor on a file of the host's folder, shown as the main window
// shows it.  Fails the test (returns null) when the file does not open.
inline QPointer<FormRoom> openEditor(RoomHost& host, std::int32_t zone,
                                     const std::string& bytes) {
    writeBytes(host.path(QString::number(zone) + QStringLiteral(".wld")), bytes);
    auto* editor = new FormRoom(host);
    QString error;
    if (!editor->openZone(zone, error)) {
        qWarning("open failed: %s", qPrintable(error));
        delete editor;
        return nullptr;
    }
    editor->show();
    return editor;
}

} // namespace marl::test
