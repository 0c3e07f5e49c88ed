#pragma once
// The check every window's access keys share: Alt and a letter press the
// control while its caption reads as it stands.

#include <QAbstractButton>
#include <QSignalSpy>
#include <QtTest>

#include "script_player.h"

namespace marl::test {

// `key` is "control caption letter": Alt and the letter, pressed in `window`
// wherever its focus is, click the control of that name, whose text is the
// caption.  A letter used twice in a window would only move the focus.
// Fails the running test otherwise.
inline void checkAccessKey(QWidget* window, const QString& key) {
    auto* control = find<QAbstractButton>(window, key.section(' ', 0, 0));
    QVERIFY2(control, qPrintable(key));
    control->setEnabled(true); // the key matters here, not the state of the control
    QSignalSpy clicked(control, &QAbstractButton::clicked);
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window));
    QTest::keyClick(window, Qt::Key(key.back().unicode()), Qt::AltModifier);
    QCOMPARE(control->text(), key.section(' ', 1, -2));
    QTRY_COMPARE(clicked.count(), 1); // Done and Cancel then close the window
}

} // namespace marl::test
