// The object editor as a builder meets it: the window fits a 1024 x 768
// screen with every stock zone open and its list shows whole names; Alt and
// a letter press the control while its caption reads as it stands, in the
// editor and the two dialogs it sets up itself; Tab walks the editor in
// reading order.

#include "form_object_fixture.h"

#include <QScrollBar>

#include "access_keys.h"

using namespace marl;
using namespace marl::test;

class FormObjectKeysTest : public QObject {
    Q_OBJECT
private slots:
    void fitsTheScreen_data();
    void fitsTheScreen();
    void accessKeys_data();
    void accessKeys();
    void tabOrder_data();
    void tabOrder();
};

void FormObjectKeysTest::fitsTheScreen_data() {
    QTest::addColumn<QString>("path"); // empty: the small zone
    QTest::newRow("small zone") << QString();
    for (const QString& path : corpusFiles(".obj"))
        QTest::newRow(qPrintable(QFileInfo(path).fileName())) << path;
}

void FormObjectKeysTest::fitsTheScreen() {
    QFETCH(QString, path);
    ObjectSession s(path.isEmpty() ? smallObjects() : readBytes(path),
                    path.isEmpty() ? 95 : QFileInfo(path).baseName().toInt());
    QVERIFY(s.opened);
    const QSize least = s.editor->minimumSizeHint();
    QVERIFY2(least.width() <= 1000 && least.height() <= 720,
             qPrintable(QString("%1 x %2").arg(least.width()).arg(least.height())));
    // At its smallest the list needs no sideways scrolling...
    s.editor->resize(least);
    QCoreApplication::processEvents();
    auto* list = find<QListWidget>(s.editor, "listObjectSelect");
    QCOMPARE(list->horizontalScrollBar()->maximum(), 0);
    // ...and the list and the text fields take what the window gains.
    const QSize listSize = list->size();
    const int aliasWidth = find(s.editor, "textAlias")->width();
    s.editor->resize(least + QSize(600, 200));
    QCoreApplication::processEvents();
    QVERIFY(list->width() > listSize.width() && list->height() > listSize.height());
    QVERIFY(find(s.editor, "textAlias")->width() > aliasWidth);
}

void FormObjectKeysTest::accessKeys_data() {
    QTest::addColumn<QString>("opener");
    QTest::addColumn<QStringList>("keys"); // "control caption letter"
    QTest::newRow("formObject") << ""
                                << QStringList{"buttonNew New N",
                                               "buttonSave Save S",
                                               "buttonEdit Edit E",
                                               "buttonDelete Delete T",
                                               "buttonClearEBits Clear Bits B",
                                               "buttonClearWBits Clear Bits I",
                                               "buttonValues Object Values V",
                                               "buttonObjectAffects Object Affects F",
                                               "buttonEDescs Extra Descriptions X",
                                               "buttonADesc Action Description A",
                                               "buttonClearAll Clear All L",
                                               "buttonCancel Cancel C",
                                               "buttonDone Done D"};
    const QStringList leave{"buttonDone Done D", "buttonCancel Cancel C"};
    QTest::newRow("formObjectExtraDescs") << "buttonEDescs:click" << leave;
    QTest::newRow("formObjectActionDesc") << "buttonADesc:click" << leave;
}

// Alt and the letter press the control wherever the focus is in its window;
// a letter used twice in a window would only move the focus.
void FormObjectKeysTest::accessKeys() {
    QFETCH(QString, opener);
    QFETCH(QStringList, keys);
    for (const QString& key : keys) {
        ObjectSession s(smallObjects());
        MARL_PLAY(
            s.playAll({"listObjectSelect:dclick:1", opener.isEmpty() ? "?textVNum" : opener}));
        QPointer<QWidget> window =
            opener.isEmpty() ? s.editor.data() : topLevel(QTest::currentDataTag());
        QVERIFY(window);
        // Clear All, Clear Bits and Delete ask first; the answer is not what
        // is tested.
        s.host.script.answer({false});
        checkAccessKey(window, key);
        if (QTest::currentTestFailed())
            return;
        for (QWidget* top : QApplication::topLevelWidgets())
            if (top != s.editor && top->objectName().startsWith("formObject"))
                delete top;
        s.host.script.reset();
    }
}

// Tab from a control reaches these, in this order.
void FormObjectKeysTest::tabOrder_data() {
    QTest::addColumn<QString>("from");
    QTest::addColumn<QStringList>("walk");
    QTest::newRow("the fields, then the type")
        << "textVNum"
        << QStringList{"textAlias", "textSDesc", "textLDesc", "textWeight",
                       "textCost",  "textRPD",   "optionWeapon", "checkGlow"};
    QTest::newRow("the last flags, the dialogs and the commands")
        << "checkNoSell"
        << QStringList{"buttonClearEBits", "checkTake",       "checkFinger", "checkNeck",
                       "checkBody",        "checkHead",       "checkLegs",   "checkFeet",
                       "checkHands",       "checkArms",       "checkShield", "checkAbout",
                       "checkWaist",       "checkWrist",      "checkWield",  "checkHold",
                       "buttonClearWBits", "buttonValues",    "buttonObjectAffects",
                       "buttonEDescs",     "buttonADesc",     "buttonNew",   "buttonClearAll",
                       "buttonCancel",     "buttonDone",      "listObjectSelect"};
}

void FormObjectKeysTest::tabOrder() {
    QFETCH(QString, from);
    QFETCH(QStringList, walk);
    ObjectSession s(smallObjects());
    s.editor->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(s.editor));
    find(s.editor, from)->setFocus();
    QStringList walked;
    for (qsizetype i = 0; i < walk.size(); ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        walked.append(QApplication::focusWidget()->objectName());
    }
    QCOMPARE(walked, walk);
}

QTEST_MAIN(FormObjectKeysTest)
#include "form_object_keys_test.moc"
