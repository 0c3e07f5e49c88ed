// The room editor's layout as a builder meets it: Tab follows the reading
// order, in the editor and in the exit dialog.

#include "form_room_fixture.h"

#include "access_keys.h"

using namespace marl;
using namespace marl::test;

class FormRoomLayoutTest : public QObject {
    Q_OBJECT
private slots:
    void tabOrder_data();
    void tabOrder();
};

void FormRoomLayoutTest::tabOrder_data() {
    QTest::addColumn<QString>("window"); // the editor, or the exit dialog of room 9501's West
    QTest::addColumn<QString>("from");
    QTest::addColumn<QStringList>("order");
    QTest::newRow("editor") << "formRoom"
                            << "textVNum"
                            << QStringList{"textName",       "textDesc",       "optionSecTypeCity",
                                           "checkExitNorth", "checkExitSouth", "checkExitEast",
                                           "checkExitWest",  "textWestToVNum", "buttonExitWest",
                                           "checkExitUp"};
    QTest::newRow("editor flags to commands")
        << "formRoom"
        << "buttonClearExits" << QStringList{"checkBitVDark", "checkBitVDeath"};
    QTest::newRow("exit dialog: the selected door kind")
        << "formRoomDoor"
        << "textToVNum" << QStringList{"checkNowhere", "optionDoor", "textKeyVNum", "checkNoKey"};
}

void FormRoomLayoutTest::tabOrder() {
    QFETCH(QString, window);
    QFETCH(QString, from);
    QFETCH(QStringList, order);
    EditorSession s(smallZone());
    MARL_PLAY(s.play({"listRoomSelect:dclick:1"}));
    if (window == "formRoomDoor")
        MARL_PLAY(s.play({"buttonExitWest:click"}));
    QWidget* shown = window == "formRoom" ? s.editor.data() : topLevel(window);
    QVERIFY(shown);
    QWidget* start = find(shown, from);
    QVERIFY(start);
    QCOMPARE(tabWalk(shown, start, order.size()), order);
}

QTEST_MAIN(FormRoomLayoutTest)
#include "form_room_layout_test.moc"
