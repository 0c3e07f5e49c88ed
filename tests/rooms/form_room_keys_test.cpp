// The access keys of the room editor and its two dialogs: Alt and a letter
// press the control while its caption reads as it stands.

#include "test_main.h"

#include "form_room_fixture.h"

#include "access_keys.h"

using namespace marl;
using namespace marl::test;

class FormRoomKeysTest : public QObject {
    Q_OBJECT
private slots:
    void accessKeys_data();
    void accessKeys();
};

// Each window, opened on the second room of the small zone (the exit dialog
// on its west door), with its access keys.
void FormRoomKeysTest::accessKeys_data() {
    QTest::addColumn<QString>("opener");
    QTest::addColumn<QStringList>("keys"); // "control caption letter"
    QTest::newRow("formRoom") << ""
                              << QStringList{"buttonNew New N",
                                             "buttonSave Save S",
                                             "buttonEdit Edit E",
                                             "buttonDelete Delete T",
                                             "buttonExtraDescs Extra Descriptions X",
                                             "buttonClearAll Clear All L",
                                             "buttonCancel Cancel C",
                                             "buttonDone Done D",
                                             "buttonClearExits Clear Exits I",
                                             "buttonClearBits Clear Bits B"};
    QTest::newRow("formRoomDoor") << "buttonExitWest:click"
                                  << QStringList{
                                         "buttonDone Done D",           "buttonCancel Cancel C",
                                         "buttonClearAll Clear All L",  "checkNowhere Nowhere W",
                                         "optionNormal Normal N",       "optionDoor Door O",
                                         "optionPickProof PickProof P", "checkNoKey No Key K"};
    QTest::newRow("formRoomExtraDescs")
        << "buttonExtraDescs:click" << QStringList{"buttonAdd Add A",
                                                   "buttonUpdate Update U",
                                                   "buttonEdit Edit E",
                                                   "buttonRemove Remove R",
                                                   "buttonRemoveAll Remove All M",
                                                   "buttonClearAll Clear All L",
                                                   "buttonDone Done D",
                                                   "buttonCancel Cancel C"};
}

void FormRoomKeysTest::accessKeys() {
    QFETCH(QString, opener);
    QFETCH(QStringList, keys);
    for (const QString& key : keys) {
        EditorSession s(smallZone());
        MARL_PLAY(s.play({"listRoomSelect:dclick:1", opener.isEmpty() ? "?textVNum" : opener}));
        if (!pressAccessKey(opener.isEmpty() ? s.editor.data() : topLevel(QTest::currentDataTag()),
                            key, s.host.script))
            return;
    }
}

MARL_TEST_MAIN(FormRoomKeysTest)
#include "form_room_keys_test.moc"
