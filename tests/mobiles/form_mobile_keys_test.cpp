// The access keys and tab order of the mobile editor and its four dialogs:
// Alt and a letter press the control while its caption reads as it stands,
// and Tab walks the editor's fields in reading order.

#include "test_main.h"

#include "form_mobile_fixture.h"

#include "access_keys.h"

using namespace marl;
using namespace marl::test;

class FormMobileKeysTest : public QObject {
    Q_OBJECT
private slots:
    void accessKeys_data();
    void accessKeys();
    void tabOrder();
};

// Each window, opened on the second mobile of the small zone, with its keys.
void FormMobileKeysTest::accessKeys_data() {
    QTest::addColumn<QString>("opener");
    QTest::addColumn<QStringList>("keys"); // "control caption letter"
    const QStringList leave{"buttonDone Done D", "buttonCancel Cancel C",
                            "buttonClearAll Clear All L"};
    QTest::newRow("formMobile") << ""
                                << QStringList{"buttonNew New N",
                                               "buttonSave Save S",
                                               "buttonEdit Edit E",
                                               "buttonDelete Delete T",
                                               "buttonActionBitV Action Bitvector A",
                                               "buttonAffectBitV Affection Bitvector F",
                                               "buttonESpecs ESpecs P",
                                               "buttonDDesc Detailed Desc I",
                                               "buttonClearAll Clear All L",
                                               "buttonCancel Cancel C",
                                               "buttonDone Done D"};
    QTest::newRow("formMobileAction") << "buttonActionBitV:click" << leave;
    QTest::newRow("formMobileAffect") << "buttonAffectBitV:click" << leave;
    QTest::newRow("formMobileESpecs") << "buttonESpecs:click" << leave;
    QTest::newRow("formMobileDesc") << "buttonDDesc:click" << leave;
}

void FormMobileKeysTest::accessKeys() {
    QFETCH(QString, opener);
    QFETCH(QStringList, keys);
    for (const QString& key : keys) {
        MobileSession s(smallMobiles());
        MARL_PLAY(
            s.playAll({"listMobileSelect:dclick:1", opener.isEmpty() ? "?textVNum" : opener}));
        if (!pressAccessKey(opener.isEmpty() ? s.editor.data() : topLevel(QTest::currentDataTag()),
                            key, s.host.script))
            return;
    }
}

// Tab from the VNum walks the texts, the numbers row by row, and the dice.
void FormMobileKeysTest::tabOrder() {
    MobileSession s(smallMobiles());
    QCOMPARE(
        tabWalk(s.editor, find(s.editor, "textVNum"), 15),
        QStringList({"textAlias", "textSDesc", "textLDesc", "textLevel", "textAlign", "textGold",
                     "textTHAC0", "textAC", "textXP", "textMHPNumD", "textMHPSizeD", "textMHPPlus",
                     "textBHDNumD", "textBHDSizeD", "textBHDPlus"}));
}

MARL_TEST_MAIN(FormMobileKeysTest)
#include "form_mobile_keys_test.moc"
