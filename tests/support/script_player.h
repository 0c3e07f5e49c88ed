#pragma once
// Builders' scripts on the real widgets, for any window and any kind of
// editor: actions on controls found by object name, questions answered from
// the script, and comparisons of what a window shows.  A control name that
// no widget has fails the row it is in, not the whole test program.

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
#include <memory>
#include <optional>

#include "test_support.h"
#include "widgets/qt_text.h"

namespace marl::test {

// The main window's side: the zone's folder, the prompts and the closing.
class TestHost : public EditorHost {
public:
    QString fileDir() const override { return folder; }
    QString fileTitle() const override { return title; }
    Prompts& prompts() override { return script; }
    void editorClosed() override { ++closed; }
    QString path(const QString& name) const { return folder + name; }

    QTemporaryDir dir;
    QString folder = dir.path() + '/';
    QString title; // the file chosen, when not the zone's own name

    ScriptedPrompts script;
    int closed = 0;
};

// The widget of that name inside `parent`, or null.
template <typename Widget = QWidget> Widget* find(const QWidget* parent, const QString& name) {
    return parent->findChild<Widget*>(name);
}

// The visible top-level window of that name, or null.
inline QWidget* topLevel(const QString& name) {
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (widget->objectName() == name && widget->isVisible())
            return widget;
    return nullptr;
}

// One action in a window: "name:type:text" (`\n` is Return), "name:erase",
// "name:backspace", "name:escape", "name:enter", "name:tab", "name:click", on
// a list "name:line:N", "name:ctrlline:N", "name:dclick:N", and "close" (the
// frame).  False, the row failed, when no control has that name.
bool act(QWidget* window, const QString& step);

// Values a script reads besides the controls (the table, the file).
using Probe = std::function<std::optional<QString>(const QString& name)>;

// What a window shows, in the form of `expected`: "name=value" entries
// separated by ", " for a field or label (`|` for line breaks), a list (lines joined
// by `/`), a check box or option (x or -), a probe, "title" and "focus" (the
// control with the focus); a name alone only tells whether it is enabled,
// and `!` before a name says disabled.  A name no control has shows as
// "name?" so that the comparison fails.
QString shows(const QWidget* window, const QString& expected, const Probe& probe);

// Plays a script: actions, "yes" or "no" for the next question, "ok" to
// allow a message, "?expected" to compare what the window shows ("said": the
// messages so far as "title: text", joined by " | ").  False, the test
// failed, at the first difference, a missing control or an unscripted message.
bool play(QWidget* window, ScriptedPrompts& script, const QStringList& steps,
          const Probe& probe = {});
// Plays a script in which ">formName" moves on into the window of that name
// and ">" back to `home`; once the window stepped into has closed, the steps
// go to `home` again.
bool playAcross(QWidget* home, ScriptedPrompts& script, const QStringList& steps,
                const Probe& probe = {});
#define MARL_PLAY(...)                                                                             \
    do {                                                                                           \
        if (!(__VA_ARGS__))                                                                        \
            return;                                                                                \
    } while (false)

// An editor of any kind on a zone's file (its New without one), as the main
// window shows it, and what its scripts read besides the window: "changed",
// "index" (CurrentIndex), "count" (RecordCount), "closed" (reports to the
// main window), "bytes" (the file, CR LF shown as `|` and LF as `/`) and
// "dialog" (the editor's dialog open, by name, or -).  A kind adds its own
// probes through `more`.
template <typename Form> struct KindSession {
    TestHost host;
    QPointer<Form> editor = new Form(host);
    int zone;
    QString extension;
    bool opened = true;
    Probe more;

    KindSession(const std::string& file, int zone, const QString& extension,
                const QString& folder = {})
        : zone(zone), extension(extension) {
        if (!folder.isEmpty() && QDir().mkpath(host.path(folder)))
            host.folder = host.path(folder + '/');
        QString error;
        if (file.empty())
            editor->newZone(zone);
        else if (writeBytes(filePath(), file); !editor->openZone(zone, error))
            opened = false, qWarning("open failed: %s", qPrintable(error));
        editor->show();
    }
    ~KindSession() { delete editor.data(); }
    QString filePath() const { return host.path(QString::number(zone) + extension); }
    std::string bytes() const { return readBytes(filePath()); }

    std::optional<QString> probe(const QString& name) const {
        if (more)
            if (std::optional<QString> value = more(name))
                return value;
        const std::map<QString, std::function<QString()>> values{
            {"changed", [&] { return editor->changed() ? "x" : "-"; }},
            {"index", [&] { return QString::number(editor->currentIndex()); }},
            {"count", [&] { return QString::number(editor->recordCount()); }},
            {"closed", [&] { return QString::number(host.closed); }},
            {"bytes", [&] { return fromBytes(bytes()).replace("\r\n", "|").replace('\n', '/'); }},
            {"dialog", [&] { return openDialog(); }}};
        const auto it = values.find(name);
        return it == values.end() ? std::nullopt : std::optional<QString>(it->second());
    }
    // A kind's "table", "file" and "slotN": its table, its file read back
    // and slot N, as `describe` writes records ("; " between them).
    template <typename Table>
    std::optional<QString> recordProbe(const QString& name, const Table& table,
                                       int (*read)(std::string_view, Table&),
                                       QString (*describe)(const Table&, int)) const {
        if (name == "table")
            return describe(table, editor->recordCount());
        if (name == "file") {
            auto file = std::make_unique<Table>();
            return describe(*file, read(bytes(), *file));
        }
        if (name.startsWith("slot"))
            return describe(table, name.mid(4).toInt() + 1).section("; ", -1);
        return std::nullopt;
    }
    bool play(const QStringList& steps) {
        return test::play(editor, host.script, steps,
                          [this](const QString& name) { return probe(name); });
    }

    // The visible window beside the editor whose name begins with the
    // editor's ("formMobileDesc" beside "formMobile"), or "-".
    QString openDialog() const {
        if (!editor)
            return QStringLiteral("-");
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (widget != editor && widget->isVisible() &&
                widget->objectName().startsWith(editor->objectName()))
                return widget->objectName();
        return QStringLiteral("-");
    }

    // Plays a script that may step into the editor's dialogs (see playAcross).
    bool playAll(const QStringList& steps) {
        return playAcross(editor, host.script, steps,
                          [this](const QString& name) { return probe(name); });
    }
};

} // namespace marl::test
