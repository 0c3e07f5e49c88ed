#include "script_player.h"

#include <QLabel>

#include "widgets/qt_text.h"

namespace marl::test {

bool act(QWidget* window, const QString& step) {
    if (step == "close")
        return window->close(), true;
    const QStringList part = step.split(':');
    QWidget* widget = find(window, part[0]);
    if (!widget) {
        QTest::qFail(qPrintable("no control named " + part[0] + " in " + window->objectName()),
                     __FILE__, __LINE__);
        return false;
    }
    const QString& action = part.value(1);
    auto* list = qobject_cast<QListWidget*>(widget);
    const QPoint line = list && list->item(part.value(2).toInt())
                            ? list->visualItemRect(list->item(part.value(2).toInt())).center()
                            : QPoint();
    if (action == "type") {
        for (QChar c : part.mid(2).join(':')) {
            if (c == '\n')
                QTest::keyClick(widget, Qt::Key_Return);
            else if (c.unicode() < 0x80)
                QTest::keyClick(widget, c.toLatin1());
            else // no key of its own: a key event carrying the character
                QTest::sendKeyEvent(QTest::Click, widget, Qt::Key_unknown, QString(c), {});
        }
    } else if (action == "erase") {
        QTest::keyClick(widget, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(widget, Qt::Key_Delete);
    } else if (action == "backspace") {
        QTest::keyClick(widget, Qt::Key_Backspace);
    } else if (action == "tab") {
        QTest::keyClick(widget, Qt::Key_Tab);
    } else if (action == "escape" || action == "enter") {
        if (!activate(window)) // shortcuts need the window active
            return QTest::qVerify(false, "window active", "", __FILE__, __LINE__);
        QTest::keyClick(widget, action == "enter" ? Qt::Key_Return : Qt::Key_Escape);
    } else if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
        // Check boxes and options take the click on their box.
        QTest::mouseClick(button, Qt::LeftButton, {},
                          button->isCheckable() ? QPoint(8, button->height() / 2)
                                                : button->rect().center());
    } else if (list && action == "dclick") {
        // A double click reaches a widget as press, release, double click, release.
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, line);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, line);
        QTest::mouseRelease(list->viewport(), Qt::LeftButton, {}, line);
    } else if (list && (action == "line" || action == "ctrlline")) {
        QTest::mouseClick(list->viewport(), Qt::LeftButton,
                          action == "line" ? Qt::NoModifier : Qt::ControlModifier, line);
    } else {
        QTest::qFail(qPrintable("no action " + step), __FILE__, __LINE__);
        return false;
    }
    return true;
}

QString shows(const QWidget* window, const QString& expected, const Probe& probe) {
    QStringList out;
    static const QRegularExpression entryStart(", (?=!?[A-Za-z]\\w*(=|, |$))");
    for (const QString& entry : expected.split(entryStart)) {
        const QString name = entry.section('=', 0, 0).remove('!');
        std::optional<QString> value = probe(name);
        if (name == "title" || name == "focus") {
            const QWidget* focus = window->focusWidget();
            value = name == "title" ? window->windowTitle()
                    : focus         ? focus->objectName()
                                    : QString();
        }
        if (value) {
            out.append(name + '=' + *value);
            continue;
        }
        QWidget* widget = find(window, name);
        if (!widget) {
            out.append(name + '?');
            continue;
        }
        auto* button = qobject_cast<QAbstractButton*>(widget);
        if (auto* line = qobject_cast<QLineEdit*>(widget))
            value = line->text();
        else if (auto* label = qobject_cast<QLabel*>(widget))
            value = label->isHidden() ? QString() : label->text(); // a hidden label says nothing
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

bool play(QWidget* window, ScriptedPrompts& script, const QStringList& steps, const Probe& probe) {
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
        else if (!step.startsWith('?')) {
            if (!act(window, step))
                return false;
        } else if (!QTest::qCompare(shows(window, step.mid(1), all), step.mid(1), "shows",
                                    qPrintable(step), __FILE__, __LINE__))
            return false;
    }
    return QTest::qVerify(script.unexpected.isEmpty(), "nothing unscripted",
                          qPrintable(script.unexpected.join(" | ")), __FILE__, __LINE__);
}

bool playAcross(QWidget* home, ScriptedPrompts& script, const QStringList& steps,
                const Probe& probe) {
    QPointer<QWidget> own = home, window = home;
    for (const QString& step : steps) {
        if (step.startsWith('>')) {
            window = step.size() > 1 ? topLevel(step.mid(1)) : own.data();
            if (!QTest::qVerify(window != nullptr, qPrintable(step), "no such window", __FILE__,
                                __LINE__))
                return false;
            continue;
        }
        QWidget* target = window ? window.data() : own.data();
        if (!QTest::qVerify(target != nullptr, qPrintable(step), "the window has closed", __FILE__,
                            __LINE__) ||
            !play(target, script, {step}, probe))
            return false;
    }
    return true;
}

} // namespace marl::test
