// The room editor's layout as a builder meets it: the window fits a 1024 x 768
// screen with every stock zone open and its list shows whole names; Tab
// follows the reading order, in the editor and in the exit dialog.

#include "test_main.h"

#include "form_room_fixture.h"

#include <QFileInfo>

#include "access_keys.h"

using namespace marl;
using namespace marl::test;

class FormRoomLayoutTest : public QObject {
    Q_OBJECT
private slots:
    void fitsTheScreen_data();
    void fitsTheScreen();
    void tabOrder_data();
    void tabOrder();
};

void FormRoomLayoutTest::fitsTheScreen_data() {
    QTest::addColumn<QString>("path"); // empty: the small zone
    QTest::newRow("small zone") << QString();
    for (const QString& path : corpusFiles(".wld"))
        QTest::newRow(qPrintable(QFileInfo(path).fileName())) << path;
}

void FormRoomLayoutTest::fitsTheScreen() {
    QFETCH(QString, path);
    const std::string file = path.isEmpty() ? smallZone() : readBytes(path);
    EditorSession s(file, path.isEmpty() ? 95 : QFileInfo(path).baseName().toInt());
    QVERIFY(s.opened);
    checkFitsTheScreen(s.editor, "listRoomSelect", "textDesc", "textDesc");
}

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

MARL_TEST_MAIN(FormRoomLayoutTest)
#include "form_room_layout_test.moc"
