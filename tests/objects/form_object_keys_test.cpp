// The object editor as a builder meets it: Alt and a letter press the control while its caption reads as it stands, in the
// editor and the two dialogs it sets up itself; Tab walks the editor in
// reading order.

#include "form_object_fixture.h"

#include "access_keys.h"

using namespace marl;
using namespace marl::test;

class FormObjectKeysTest : public QObject {
    Q_OBJECT
private slots:
    void accessKeys_data();
    void accessKeys();
    void tabOrder_data();
    void tabOrder();
};

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

void FormObjectKeysTest::accessKeys() {
    QFETCH(QString, opener);
    QFETCH(QStringList, keys);
    for (const QString& key : keys) {
        ObjectSession s(smallObjects());
        MARL_PLAY(
            s.playAll({"listObjectSelect:dclick:1", opener.isEmpty() ? "?textVNum" : opener}));
        if (!pressAccessKey(opener.isEmpty() ? s.editor.data() : topLevel(QTest::currentDataTag()),
                            key, s.host.script))
            return;
    }
}

// Tab from a control reaches these, in this order.
void FormObjectKeysTest::tabOrder_data() {
    QTest::addColumn<QString>("from");
    QTest::addColumn<QStringList>("walk");
    QTest::newRow("the fields, then the type")
        << "textVNum" << QStringList{"textAlias", "textSDesc", "textLDesc",    "textWeight",
                                     "textCost",  "textRPD",   "optionWeapon", "checkGlow"};
    QTest::newRow("the last flags, the dialogs and the commands")
        << "checkNoSell"
        << QStringList{"buttonClearEBits", "checkTake",       "checkFinger",         "checkNeck",
                       "checkBody",        "checkHead",       "checkLegs",           "checkFeet",
                       "checkHands",       "checkArms",       "checkShield",         "checkAbout",
                       "checkWaist",       "checkWrist",      "checkWield",          "checkHold",
                       "buttonClearWBits", "buttonValues",    "buttonObjectAffects", "buttonEDescs",
                       "buttonADesc",      "buttonNew",       "buttonClearAll",      "buttonCancel",
                       "buttonDone",       "listObjectSelect"};
}

void FormObjectKeysTest::tabOrder() {
    QFETCH(QString, from);
    QFETCH(QStringList, walk);
    ObjectSession s(smallObjects());
    QCOMPARE(tabWalk(s.editor, find(s.editor, from), walk.size()), walk);
}

QTEST_MAIN(FormObjectKeysTest)
#include "form_object_keys_test.moc"
