#pragma once
// What every window's keys and layout tests share: Alt and a letter press
// the control while its caption reads as it stands, no two controls share a
// name, and the walk Tab takes.

#include <QAbstractButton>
#include <QSignalSpy>
#include <QtTest>

#include "script_player.h"

namespace marl::test {

// No two controls of a window share a name: the window's code and a
// builder's script would find only the first.
inline void checkNamesUnique(const QWidget* window) {
    QSet<QString> seen;
    for (const QWidget* child : window->findChildren<QWidget*>()) {
        const QString name = child->objectName();
        if (name.isEmpty() || name.startsWith("qt_"))
            continue;
        QVERIFY2(!seen.contains(name), qPrintable(name + " twice in " + window->objectName()));
        seen << name;
    }
}

// `key` is "control caption letter": Alt and the letter, pressed in `window`
// wherever its focus is, click the control of that name, whose text is the
// caption.  A letter used twice in a window would only move the focus.
// Questions the click asks (Clear All, Delete) are answered No from
// `prompts`; the answer is not what is tested.  False when the running test
// failed.
inline bool pressAccessKey(QWidget* window, const QString& key, ScriptedPrompts& prompts) {
    [&] {
        QVERIFY2(window, qPrintable(key));
        checkNamesUnique(window);
        if (QTest::currentTestFailed())
            return;
        auto* control = find<QAbstractButton>(window, key.section(' ', 0, 0));
        QVERIFY2(control, qPrintable(key));
        control->setEnabled(true); // the key matters here, not the state of the control
        // An access key presses its button at once and clicks it 100 ms
        // later; the press is the key's work, the click is Qt's.
        QSignalSpy pressed(control, &QAbstractButton::pressed);
        prompts.answer({false});
        QVERIFY(activate(window));
        QTest::keyClick(window, Qt::Key(key.back().unicode()), Qt::AltModifier);
        QCOMPARE(control->text(), key.section(' ', 1, -2));
        QCOMPARE(pressed.count(), 1);
        control->blockSignals(true); // nothing runs when the click comes
    }();
    prompts.reset();
    return !QTest::currentTestFailed();
}

// The enabled controls of a window that have an access key, by letter, no
// letter twice.
inline QMap<QChar, QAbstractButton*> keyed(QWidget* window) {
    QMap<QChar, QAbstractButton*> keys;
    for (QAbstractButton* control : window->findChildren<QAbstractButton*>())
        if (const QKeySequence key = control->shortcut(); control->isEnabled() && !key.isEmpty()) {
            const QChar letter(key[0].key());
            QTest::qVerify(!keys.contains(letter) && key[0].keyboardModifiers() == Qt::AltModifier,
                           "one control per letter", qPrintable(control->objectName()), __FILE__,
                           __LINE__);
            keys.insert(letter, control);
        }
    return keys;
}

// The names of the controls Tab reaches from `from`, `count` presses.
inline QStringList tabWalk(QWidget* window, QWidget* from, qsizetype count) {
    if (!activate(window))
        return {"window not active"};
    from->setFocus();
    QStringList walked;
    for (qsizetype i = 0; i < count; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        walked.append(QApplication::focusWidget()->objectName());
    }
    return walked;
}

} // namespace marl::test
