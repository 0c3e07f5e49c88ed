// The access keys and tab order of the values dialog, its pick lists and the
// container state: Alt and a letter press the control while its caption
// reads as it stands, and Tab walks the group shown in reading order.

#include "test_main.h"

#include "form_object_values_fixture.h"

#include "access_keys.h"

using namespace marl;
using namespace marl::test;

class FormObjectValuesKeysTest : public QObject {
    Q_OBJECT
private slots:
    void init() { ClearObjectTable(); }
    void accessKeys_data();
    void accessKeys();
    void tabOrder_data();
    void tabOrder();
};

void FormObjectValuesKeysTest::accessKeys_data() {
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("opener");   // the button opening the window tested
    QTest::addColumn<QStringList>("keys"); // "control caption letter"
    const QStringList leave{"buttonDone Done D", "buttonCancel Cancel C",
                            "buttonClearAll Clear All L"};
    QTest::newRow("scroll") << 2 << ""
                            << (QStringList{"buttonScrollPotionS1 Spell 1 1",
                                            "buttonScrollPotionS2 Spell 2 2",
                                            "buttonScrollPotionS3 Spell 3 3"}
                                << leave);
    QTest::newRow("wand") << 3 << "" << QStringList{"buttonWandStaffSpell Spell S"};
    QTest::newRow("weapon") << 5 << "" << QStringList{"buttonWeaponType Type T"};
    QTest::newRow("container") << 15 << "" << QStringList{"buttonContainerState State S"};
    QTest::newRow("drink container") << 17 << ""
                                     << QStringList{"buttonDrinkConFountainLiquid Liquid I",
                                                    "checkDrinkConFountainPoisoned Poisoned P"};
    QTest::newRow("food") << 19 << "" << QStringList{"checkFoodPoisoned Poisoned P"};
    QTest::newRow("light") << 1 << "" << QStringList{"checkEternal Eternal E"};
    QTest::newRow("formObjectSpells") << 2 << "buttonScrollPotionS1" << leave;
    QTest::newRow("formObjectLiquids") << 17 << "buttonDrinkConFountainLiquid" << leave;
    QTest::newRow("formObjectWType") << 5 << "buttonWeaponType" << leave;
    QTest::newRow("formObjectContainerState")
        << 15 << "buttonContainerState"
        << (QStringList{"checkCloseable Closeable O", "checkPickProof PickProof P",
                        "checkClosed Closed S", "checkLocked Locked K"}
            << leave);
}

// Each key in a dialog of its own: a key that opens a pick list or closes
// the window is not pressed twice.
void FormObjectValuesKeysTest::accessKeys() {
    QFETCH(int, type);
    QFETCH(QString, opener);
    QFETCH(QStringList, keys);
    for (const QString& key : keys) {
        ValuesSession s(type, "1 1 1 1");
        MARL_PLAY(s.play(opener.isEmpty() ? QStringList() : QStringList{opener + ":click"}));
        if (!pressAccessKey(opener.isEmpty() ? static_cast<QWidget*>(s.dialog)
                                             : topLevel(QTest::currentDataTag()),
                            key, s.prompts))
            return;
    }
}

void FormObjectValuesKeysTest::tabOrder_data() {
    QTest::addColumn<int>("type");
    QTest::addColumn<QStringList>("walk"); // from the focus the dialog opens with
    const QStringList commands{"buttonClearAll", "buttonCancel", "buttonDone"};
    QTest::newRow("scroll") << 2
                            << (QStringList{"textScrollPotionLevel", "buttonScrollPotionS1",
                                            "textScrollPotionS1", "buttonScrollPotionS2",
                                            "textScrollPotionS2", "buttonScrollPotionS3",
                                            "textScrollPotionS3"}
                                << commands);
    QTest::newRow("light") << 1 << (QStringList{"textLightDuration", "checkEternal"} << commands);
    QTest::newRow("drink container")
        << 17
        << (QStringList{"textDrinkConFountainCapacity", "textDrinkConFountainRemaining",
                        "buttonDrinkConFountainLiquid", "textDrinkConFountainLiquid",
                        "checkDrinkConFountainPoisoned"}
            << commands);
}

void FormObjectValuesKeysTest::tabOrder() {
    QFETCH(int, type);
    QFETCH(QStringList, walk);
    ValuesSession s(type, "1 1 1 1");
    QVERIFY(QTest::qWaitForWindowActive(s.dialog));
    QWidget* first = QApplication::focusWidget();
    QCOMPARE(QStringList{first->objectName()} + tabWalk(s.dialog, first, walk.size() - 1), walk);
}

MARL_TEST_MAIN(FormObjectValuesKeysTest)
#include "form_object_values_keys_test.moc"
