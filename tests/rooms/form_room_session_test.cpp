// A builder's whole session in the room editor: open a zone file, change the
// first room, give it a new exit with a door and an extra description, save,
// and read what the file holds.

#include "form_room_fixture.h"

#include <QFile>
#include <QGroupBox>
#include <QPushButton>

#include "rooms/room_file.h"

using namespace marl;
using namespace marl::test;

namespace {

// The first room of the small zone after the session, and the rest as the
// writer gives them back (an empty exit description stands on a line of its
// own before its `~`).
std::string smallZoneAfterSession() {
    return lf({"#9500", "The Landing (changed)~", "A wooden landing.", "~", "95 h 3",
               "D0", "A track north.", "~", "~", "0 -1 9501",
               "D2", "A new gate.", "~", "gate~", "1 9598 9599",
               "D1", "The river.", "~", "~", "0 -1 -1",
               "E", "bell~", "A green bell.", "~",
               "E", "plaque~", "Words.", "More words.", "~", "S",
               "#9501", "Reed Cottages~", "Low cottages.", "Smoke curls.", "~", "95 ad 1",
               "D3", "A stout door.", "~", "door stout~", "1 9510 9502", "S",
               "#9502", "The Kitchen~", "A warm kitchen.", "~", "95 k 9",
               "D1", "", "~", "door~", "2 -1 9501",
               "E", "ladder~", "Worn rungs.", "~", "E", "pot~", "Stew.", "~", "S", "$"});
}

int readInto(const std::string& bytes, RoomTable& table) { return readRooms(bytes, table); }

} // namespace

class FormRoomSessionTest : public QObject {
    Q_OBJECT
private slots:
    void cleanup() { ClearRoomTable(); }
    void wholeSession_data();
    void wholeSession();
};

void FormRoomSessionTest::wholeSession_data() {
    QTest::addColumn<QString>("source");  // empty: the small zone of these tests
    QTest::addColumn<int>("zone");
    QTest::addColumn<QString>("exit");
    QTest::addColumn<int>("direction");
    QTest::addColumn<QString>("flags");
    QTest::newRow("small zone") << "" << 95 << "South" << 2 << "h";
    QTest::newRow("project example") << examplesDir() + "/95.wld" << 95 << "South" << 2 << "h";
    QTest::newRow("stock 30.wld") << corpusDir() + "/30.wld" << 30 << "North" << 0 << "cde";
}

void FormRoomSessionTest::wholeSession() {
    QFETCH(QString, source);
    QFETCH(int, zone);
    QFETCH(QString, exit);
    QFETCH(int, direction);
    QFETCH(QString, flags);
    if (!source.isEmpty() && !QFile::exists(source))
        QSKIP(qPrintable(source + " is not here"));
    const std::string original = source.isEmpty() ? smallZone() : readBytes(source);
    const bool crlfFile = original.find("\r\n") != std::string::npos;
    const std::string eol = crlfFile ? "\r\n" : "\n";
    RoomTable before;
    const int count = readInto(original, before);

    RoomHost host;
    QPointer<FormRoom> editor = openEditor(host, zone, original);
    QVERIFY(editor);
    const QString name = QString::fromStdString(before[0].Name) + " (changed)";
    const QString to = QString::number(zone * 100 + 99);
    const QString key = QString::number(zone * 100 + 98);

    // The room: its name, a flag and the sector.
    type(find<QLineEdit>(editor, "textName"), " (changed)");
    click(find<QCheckBox>(editor, "checkBitVNoMagic"));
    click(find<QRadioButton>(editor, "optionSecTypeForest"));

    // A new exit, then its door in the exit dialog.
    click(find<QCheckBox>(editor, "checkExit" + exit));
    type(find<QLineEdit>(editor, "text" + exit + "ToVNum"), to);
    click(find<QPushButton>(editor, "buttonExit" + exit));
    QPointer<QWidget> door = topLevel("formRoomDoor");
    QVERIFY(door);
    QVERIFY(!editor->isEnabled());
    run(door, {"optionDoor:click", "textKeyVNum:erase", "textKeyVNum:type:" + key,
               "textKeywords:type:gate", "textDesc:type:A new gate."});
    click(find<QPushButton>(door, "buttonDone"));
    QVERIFY(editor->isEnabled());

    // An extra description.
    click(find<QPushButton>(editor, "buttonExtraDescs"));
    QPointer<QWidget> extras = topLevel("formRoomExtraDescs");
    QVERIFY(extras);
    QCOMPARE(find<QGroupBox>(extras, "frameExtraDescs")->title(),
             QStringLiteral("Room Extra Descriptions"));
    QVERIFY(!editor->isEnabled());
    run(extras, {"textKeywords:type:plaque", "textDesc:type:Words.\nMore words.",
                 "buttonAdd:click", "buttonDone:click"});
    QVERIFY(editor->isEnabled());

    host.script.answer({true});
    click(find<QPushButton>(editor, "buttonSave"));
    MARL_VERIFY_PROMPTS(host.script);
    QCOMPARE(host.script.records.size(), 1);  // the one overwrite question
    QVERIFY(!editor->changed());

    const std::string written = readBytes(host.path(QString::number(zone) + ".wld"));
    if (source.isEmpty()) {
        QCOMPARE(QByteArray::fromStdString(written), QByteArray::fromStdString(smallZoneAfterSession()));
    } else {
        // The first room holds the session's changes, in the file's line ends.
        const std::string z = std::to_string(zone);
        const std::size_t end = written.find(eol + "#", 1);
        const std::string room = written.substr(0, end + eol.size());
        for (const std::string& part :
             {name.toStdString() + "~" + eol, eol + z + " " + flags.toStdString() + " 3" + eol,
              eol + "D" + std::to_string(direction) + eol + "A new gate." + eol + "~" + eol +
                  "gate~" + eol + "1 " + key.toStdString() + " " + to.toStdString() + eol,
              eol + "E" + eol + "plaque~" + eol + "Words." + eol + "More words." + eol + "~" +
                  eol + "S" + eol})
            QVERIFY2(room.find(part) != std::string::npos, part.c_str());
        QCOMPARE(written.find("\r\n") != std::string::npos, crlfFile);
    }
    // Every other room reads back as it was.
    RoomTable after;
    QCOMPARE(readInto(written, after), count);
    for (int slot = 1; slot < count; ++slot)
        QVERIFY2(after[slot] == before[slot], qPrintable(QString::number(after[slot].VNum)));
    auto* list = find<QListWidget>(editor, "listRoomSelect");
    QCOMPARE(list->count(), count);
    QCOMPARE(list->item(0)->text(), QString::number(before[0].VNum) + '\t' + name);

    click(find<QPushButton>(editor, "buttonDone"));
    QCOMPARE(host.closed, 1);
    delete editor;
}

QTEST_MAIN(FormRoomSessionTest)
#include "form_room_session_test.moc"
