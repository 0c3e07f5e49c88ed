#pragma once
// What the room editor's GUI tests share: a host standing in for the main
// window, a small zone of our own, and scripts of a builder's actions on the
// real widgets, found by object name, and of what a window then shows.

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTemporaryDir>
#include <QtTest>
#include <functional>
#include <map>
#include <optional>

#include "rooms/form_room.h"
#include "rooms/room_file.h"
#include "test_support.h"
#include "widgets/qt_text.h"

namespace marl::test {

// The main window's side: the zone's folder, the prompts and the closing.
class RoomHost : public EditorHost {
public:
    QString fileDir() const override { return folder; }
    Prompts& prompts() override { return script; }
    void editorClosed() override { ++closed; }
    QString path(const QString& name) const { return folder + name; }

    QTemporaryDir dir;
    QString folder = dir.path() + '/';
    ScriptedPrompts script;
    int closed = 0;
};

// Zone 95: three rooms with exits, doors, extra descriptions and flags; then
// its rooms as roomsOf (below) gives them.
inline std::string smallZone() {
    return lf({"#9500", "The Landing~", "A wooden landing.", "~", "95 0 2",
               "D0", "A track north.", "~", "~", "0 -1 9501",
               "D1", "The river.", "~", "~", "0 -1 -1",
               "E", "bell~", "A green bell.", "~", "S",
               "#9501", "Reed Cottages~", "Low cottages.", "Smoke curls.", "~", "95 ad 1",
               "D3", "A stout door.", "~", "door stout~", "1 9510 9502", "S",
               "#9502", "The Kitchen~", "A warm kitchen.", "~", "95 k 9",
               "D1", "~", "door~", "2 -1 9501",
               "E", "ladder~", "Worn rungs.", "~", "E", "pot~", "Stew.", "~", "S", "$"});
}
inline const QString smallRooms =
    "9500 The Landing 0/2 North:0/-1/9501/ East:0/-1/-1/ +bell; 9501 Reed Cottages ad/1 "
    "West:1/9510/9502/door stout; 9502 The Kitchen k/9 East:2/-1/9501/door +ladder +pot";

template <typename Widget = QWidget> Widget* find(const QWidget* parent, const QString& name) {
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

// One action in a window: "name:type:text" (`\n` is Return), "name:erase",
// "name:backspace", "name:escape", "name:enter", "name:click", on a list
// "name:line:N", "name:ctrlline:N", "name:dclick:N", and "close" (the frame).
inline void act(QWidget* window, const QString& step) {
    if (step == "close")
        return void(window->close());
    const QStringList part = step.split(':');
    QWidget* widget = find(window, part[0]);
    const QString& action = part[1];
    auto* list = qobject_cast<QListWidget*>(widget);
    const QPoint line = list ? list->visualItemRect(list->item(part.value(2).toInt())).center()
                             : QPoint();
    if (action == "type") {
        for (QChar c : part.mid(2).join(':')) {
            if (c == '\n')
                QTest::keyClick(widget, Qt::Key_Return);
            else if (c.unicode() < 0x80)
                QTest::keyClick(widget, c.toLatin1());
            else  // no key of its own: a key event carrying the character
                QTest::sendKeyEvent(QTest::Click, widget, Qt::Key_unknown, QString(c), {});
        }
    } else if (action == "erase") {
        QTest::keyClick(widget, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(widget, Qt::Key_Delete);
    } else if (action == "backspace") {
        QTest::keyClick(widget, Qt::Key_Backspace);
    } else if (action == "escape" || action == "enter") {
        window->activateWindow();  // shortcuts need the window active
        QVERIFY(QTest::qWaitForWindowActive(window));
        QTest::keyClick(widget, action == "enter" ? Qt::Key_Return : Qt::Key_Escape);
    } else if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
        // Check boxes and options take the click on their box.
        QTest::mouseClick(button, Qt::LeftButton, {},
                          button->isCheckable() ? QPoint(8, button->height() / 2)
                                                : button->rect().center());
    } else if (action == "dclick") {
        // A double click reaches a widget as press, release, double click, release.
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, line);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, line);
        QTest::mouseRelease(list->viewport(), Qt::LeftButton, {}, line);
    } else {
        QTest::mouseClick(list->viewport(), Qt::LeftButton,
                          action == "line" ? Qt::NoModifier : Qt::ControlModifier, line);
    }
}

// Values a script reads besides the controls (the table, the file).
using Probe = std::function<std::optional<QString>(const QString& name)>;

// What a window shows, in the form of `expected`: "name=value" entries
// separated by ", " for a field (`|` for line breaks), a list (lines joined
// by `/`), a check box or option (x or -), a probe, "title" and "focus" (the
// control with the focus); a name alone only tells whether it is enabled,
// and `!` before a name says disabled.
inline QString shows(const QWidget* window, const QString& expected, const Probe& probe) {
    QStringList out;
    static const QRegularExpression entryStart(", (?=!?[A-Za-z]\\w*(=|, |$))");
    for (const QString& entry : expected.split(entryStart)) {
        const QString name = entry.section('=', 0, 0).remove('!');
        std::optional<QString> value = probe(name);
        if (name == "title" || name == "focus")
            value = name == "title" ? window->windowTitle() : window->focusWidget()->objectName();
        if (value) {
            out.append(name + '=' + *value);
            continue;
        }
        QWidget* widget = find(window, name);
        auto* button = qobject_cast<QAbstractButton*>(widget);
        if (auto* line = qobject_cast<QLineEdit*>(widget))
            value = line->text();
        else if (auto* text = qobject_cast<QPlainTextEdit*>(widget))
            value = text->toPlainText().replace('\n', '|');
        else if (auto* list = qobject_cast<QListWidget*>(widget))
            for (int i = 0; i < list->count(); ++i)
                value = (i ? *value + '/' : QString()) + list->item(i)->text();
        else if (button && button->isCheckable())
            value = button->isChecked() ? "x" : "-";
        out.append((widget->isEnabled() ? "" : "!") + name +
                   (entry.contains('=') ? '=' + value.value_or("") : QString()));
    }
    return out.join(", ");
}

// Plays a script: actions, "yes" or "no" for the next question, "ok" to
// allow a message, "?expected" to compare what the window shows ("said": the
// messages so far as "title: text", joined by " | ").  False, the test
// failed, at the first difference or an unscripted message.
inline bool play(QWidget* window, ScriptedPrompts& script, const QStringList& steps,
                 const Probe& probe = {}) {
    const Probe all = [&](const QString& name) -> std::optional<QString> {
        if (name != "said")
            return probe ? probe(name) : std::nullopt;
        QStringList said;
        for (const PromptRecord& record : script.records)
            said.append(record.title + ": " + record.text);
        return said.join(" | ");
    };
    for (const QString& step : steps) {
        if (step == "yes" || step == "no")
            script.answer({step == "yes"});
        else if (step == "ok")
            script.expectTells(1);
        else if (!step.startsWith('?'))
            act(window, step);
        else if (!QTest::qCompare(shows(window, step.mid(1), all), step.mid(1), "shows",
                                  qPrintable(step), __FILE__, __LINE__))
            return false;
    }
    return QTest::qVerify(script.unexpected.isEmpty(), "nothing unscripted",
                          qPrintable(script.unexpected.join(" | ")), __FILE__, __LINE__);
}
#define MARL_PLAY(...) do { if (!(__VA_ARGS__)) return; } while (false)

// The rooms of a table, "; " between them: VNum, name, flags/sector, each
// present exit as Direction:kind/key/to/keywords, "+keywords" for each extra
// description; "cleared" for a cleared room.
inline QString roomsOf(const RoomTable& table, int count) {
    QStringList rooms;
    for (int slot = 0; slot < count; ++slot) {
        const RoomRecord& room = table[slot];
        QString line = QString("%1 %2 %3/%4").arg(room.VNum)
                           .arg(fromBytes(room.Name), fromBytes(room.BitV)).arg(room.SecType);
        for (const ExitDef& def : kExits)
            if (const ExitRecord& exit = room.Exits[def.slot]; !exit.Absent)
                line += QString(" %1:%2/%3/%4/%5").arg(def.caption).arg(exit.DoorKind)
                            .arg(exit.KeyVNum).arg(exit.ToVNum).arg(fromBytes(exit.Keywords));
        for (const ExtraDesc& extra : room.ExtraDescs)
            line += extra.Keywords.empty() ? QString() : " +" + fromBytes(extra.Keywords);
        rooms.append(room == RoomRecord{} ? "cleared" : line);
    }
    return rooms.join("; ");
}

// The room editor on a zone's file (NewRoom without one), as the main window
// shows it, and what its scripts read besides the window: "changed",
// "index" (CurrentIndex), "absent" (the edited slot's marks, x absent),
// "closed" (reports to the main window), "table" and "file" (roomsOf them),
// "bytes" (the file, CR LF shown as `|` and LF as `/`).
struct EditorSession {
    RoomHost host;
    QPointer<FormRoom> editor = new FormRoom(host);
    int zone;
    bool opened = true;

    explicit EditorSession(const std::string& file, int zone = 95, const QString& folder = {})
        : zone(zone) {
        if (!folder.isEmpty() && QDir().mkpath(host.path(folder)))
            host.folder = host.path(folder + '/');
        QString error;
        if (file.empty())
            editor->newZone(zone);
        else if (writeBytes(host.path(QString::number(zone) + ".wld"), file);
                 !editor->openZone(zone, error))
            opened = false, qWarning("open failed: %s", qPrintable(error));
        editor->show();
    }
    ~EditorSession() {
        delete editor.data();
        ClearRoomTable();
    }
    std::optional<QString> probe(const QString& name) const {
        const std::string bytes = readBytes(host.path(QString::number(zone) + ".wld"));
        RoomTable file;
        QString absent;
        for (const ExitRecord& exit : roomTable()[editor->currentIndex()].Exits)
            absent += exit.Absent ? "x" : "-";
        const std::map<QString, std::function<QString()>> values{
            {"changed", [&] { return editor->changed() ? "x" : "-"; }},
            {"index", [&] { return QString::number(editor->currentIndex()); }},
            {"closed", [&] { return QString::number(host.closed); }},
            {"absent", [&] { return absent; }},
            {"table", [&] { return roomsOf(roomTable(), editor->recordCount()); }},
            {"file", [&] { return roomsOf(file, readRooms(bytes, file)); }},
            {"bytes", [&] { return fromBytes(bytes).replace("\r\n", "|").replace('\n', '/'); }}};
        const auto it = values.find(name);
        return it == values.end() ? std::nullopt : std::optional<QString>(it->second());
    }
    bool play(const QStringList& steps) {
        return test::play(editor, host.script, steps,
                          [this](const QString& name) { return probe(name); });
    }
};

} // namespace marl::test
