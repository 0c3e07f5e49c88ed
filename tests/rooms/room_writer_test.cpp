#include <QtTest>

#include "rooms/room_file.h"
#include "test_support.h"
#include "world/zone_file.h"

using namespace marl;

namespace {

std::string joined(const QStringList& lines, const char* eol) {
    std::string out;
    for (const QString& line : lines)
        out += line.toLatin1().toStdString() + eol;
    return out;
}

RoomRecord room(std::int32_t vnum, std::string name) {
    RoomRecord r;
    r.VNum = vnum;
    r.Name = std::move(name);
    r.BitV = "0";
    return r;
}

void setExit(RoomRecord& r, int slot, std::string desc, std::int32_t to) {
    ExitRecord& exit = r.Exits[slot];
    exit.Direction = static_cast<std::int16_t>(slot);
    exit.Desc = std::move(desc);
    exit.ToVNum = to;
    exit.KeyVNum = -1;
    exit.Absent = false;
}

} // namespace

class RoomWriterTest : public QObject {
    Q_OBJECT
private slots:
    void writes_data();
    void writes();
    void writesWhatWasReadInTheFilesLineEnds_data();
    void writesWhatWasReadInTheFilesLineEnds();
    void emptyZoneWritesOneClearedRoom();
    void writtenFileReadsBackAndWritesTheSame();
    void failedWriteLeavesTheOldFile_data();
    void failedWriteLeavesTheOldFile();
    void writeReplacesTheFile();
};

void RoomWriterTest::writes_data() {
    QTest::addColumn<int>("variant");
    QTest::addColumn<QStringList>("written");

    QTest::newRow("no exits, no extras: six lines")
        << 0 << QStringList{"#3001", "Bakery~", "You are in the bakery.", "~", "30 0 1", "S", "$"};
    QTest::newRow("empty description: an empty line, then ~")
        << 1 << QStringList{"#3001", "Bakery~", "", "~", "30 ad 0", "S", "$"};
    QTest::newRow("exits in the order D0 D2 D1 D3 D4 D5")
        << 2
        << QStringList{"#3001", "Bakery~", "",  "~", "30 0 0",  "D0", "n", "~", "~",     "0 -1 1",
                       "D2",    "s",       "~", "~", "0 -1 2",  "D1", "e", "~", "door~", "1 3005 3",
                       "D3",    "w",       "~", "~", "0 -1 4",  "D4", "",  "~", "~",     "0 -1 5",
                       "D5",    "d",       "~", "~", "0 -1 -1", "S",  "$"};
    QTest::newRow("extras up to the first empty keywords")
        << 3 << QStringList{"#3001", "Bakery~",     "",  "~", "30 0 0", "E",
                            "oven~", "A hot oven.", "~", "E", "bread~", "One line.",
                            "Two.",  "~",           "S", "$"};
    QTest::newRow("the editor's zone, not the file's, flags as stored")
        << 4 << QStringList{"#3001", "Bakery~", "", "~", "30 12 9", "S", "$"};
}

void RoomWriterTest::writes() {
    QFETCH(int, variant);
    QFETCH(QStringList, written);
    RoomTable table;
    RoomRecord& r = table[0];
    r = room(3001, "Bakery");
    switch (variant) {
    case 0:
        r.Desc = "You are in the bakery.";
        r.SecType = 1;
        break;
    case 1:
        r.BitV = "ad";
        break;
    case 2: // stored in reverse, written in slot order
        setExit(r, 5, "d", -1);
        setExit(r, 4, "", 5);
        setExit(r, 3, "w", 4);
        setExit(r, 2, "e", 3);
        r.Exits[2].Keywords = "door";
        r.Exits[2].DoorKind = 1;
        r.Exits[2].KeyVNum = 3005;
        setExit(r, 1, "s", 2);
        setExit(r, 0, "n", 1);
        break;
    case 3:
        r.ExtraDescs[0] = {"oven", "A hot oven."};
        r.ExtraDescs[1] = {"bread", "One line.\r\nTwo."};
        r.ExtraDescs[2] = {"", "not written"};
        r.ExtraDescs[3] = {"lost", "not written either"};
        break;
    case 4:
        r.BitV = "12";
        r.SecType = 9;
        break;
    }
    const std::string text = writeRooms(table, 1, 30);
    QCOMPARE(QByteArray::fromStdString(text), QByteArray::fromStdString(joined(written, "\r\n")));
}

void RoomWriterTest::writesWhatWasReadInTheFilesLineEnds_data() {
    QTest::addColumn<QStringList>("file");
    QTest::addColumn<QStringList>("written");
    QTest::newRow("what the reader drops is not written")
        << QStringList{"#1 ",    "R~ junk", "Desc~",   "77 0 +1 extra",
                       "D1 ",    "~ junk",  "k~ junk", "1  -1   +2",
                       "E ",     "k~",      "x",       "~",
                       "S junk", "$~"}
        << QStringList{"#1", "R~",     "Desc", "~",  "30 0 1", "D1", "",  "~",
                       "k~", "1 -1 2", "E",    "k~", "x",      "~",  "S", "$"};
    QTest::newRow("exits after extras come first")
        << QStringList{"#1", "R~",    "~", "30 0 0", "E",   "k~", "~",     "D5", "~",
                       "~",  "0 0 1", "S", "#2",     "R2~", "~",  "30  0", "S",  "$"}
        << QStringList{"#1", "R~", "",  "~", "30 0 0", "D5",  "", "~", "~",     "0 0 1", "E",
                       "k~", "",   "~", "S", "#2",     "R2~", "", "~", "30  0", "S",     "$"};
}

void RoomWriterTest::writesWhatWasReadInTheFilesLineEnds() {
    QFETCH(QStringList, file);
    QFETCH(QStringList, written);
    for (const char* eol : {"\r\n", "\n"}) {
        RoomTable table;
        const int count = readRooms(joined(file, eol), table);
        QCOMPARE(QByteArray::fromStdString(writeRooms(table, count, 30)),
                 QByteArray::fromStdString(joined(written, eol)));
    }
}

void RoomWriterTest::emptyZoneWritesOneClearedRoom() {
    RoomTable table;
    const std::string text = writeRooms(table, 0, 30);
    QCOMPARE(text, test::crlf({"#0", "~", "", "~", "30  0", "S", "$"}));
    RoomTable again;
    QCOMPARE(readRooms(text, again), 1);
    QVERIFY(again[0] == RoomRecord{});
}

void RoomWriterTest::writtenFileReadsBackAndWritesTheSame() {
    RoomTable table;
    for (int slot = 0; slot < 120; ++slot) {
        RoomRecord& r = table[slot];
        r = room(3000 + slot, "Room " + std::to_string(slot));
        r.Desc = slot % 2 ? "First line.\r\n\r\nThird line." : "";
        r.SecType = static_cast<std::int16_t>(slot % 10);
        if (slot % 3 == 0)
            setExit(r, slot % 6, slot % 4 ? "A way." : "", 3000 + (slot + 1) % 120);
        if (slot % 5 == 0)
            r.ExtraDescs[0] = {"sign", slot % 2 ? "" : "It reads:\r\n  Welcome."};
    }
    const std::string text = writeRooms(table, 120, 30);
    RoomTable again;
    QCOMPARE(readRooms(text, again), 120);
    for (int slot = 0; slot < 120; ++slot)
        QVERIFY2(again[slot] == table[slot], std::to_string(slot).c_str());
    QCOMPARE(writeRooms(again, 120, 30), text);
}

void RoomWriterTest::failedWriteLeavesTheOldFile_data() {
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("blocker"); // a regular file, or a folder when it ends in /
    QTest::addColumn<QStringList>("left");
    // Permission bits do not stop root, so each write is made impossible by
    // what stands in the way.
    QTest::newRow("folder part is a regular file") << "zone/30.wld"
                                                   << "zone" << QStringList{"30.wld", "zone"};
    QTest::newRow("the new file cannot be made beside the old one")
        << "30.wld"
        << "30.wld.marl-new/" << QStringList{"30.wld", "30.wld.marl-new"};
    QTest::newRow("the old name is a folder") << "31.wld"
                                              << "31.wld/" << QStringList{"30.wld", "31.wld"};
    QTest::newRow("the old file is read-only") << "30.wld" << "" << QStringList{"30.wld"};
}

void RoomWriterTest::failedWriteLeavesTheOldFile() {
    QFETCH(QString, target);
    QFETCH(QString, blocker);
    QFETCH(QStringList, left);
    QTemporaryDir dir;
    const std::string old = test::crlf({"#1", "Old~", "", "~", "30 0 0", "S", "$"});
    test::writeBytes(dir.filePath("30.wld"), old);
    if (blocker.isEmpty())
        QFile::setPermissions(dir.filePath("30.wld"), QFile::ReadOwner | QFile::ReadGroup);
    else if (blocker.endsWith('/'))
        QVERIFY(QDir(dir.path()).mkpath(blocker + "inside"));
    else
        test::writeBytes(dir.filePath(blocker), "not a folder");

    RoomTable table;
    table[0] = room(1, "New");
    std::string error;
    QVERIFY(!writeZoneFile(dir.filePath(target).toStdString(), writeRooms(table, 1, 30), error));
    QVERIFY2(!error.empty(), "the failure carries the system's reason");
    QCOMPARE(test::readBytes(dir.filePath("30.wld")), old);
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot), left);
}

void RoomWriterTest::writeReplacesTheFile() {
    QTemporaryDir dir;
    const QString path = dir.filePath("30.wld");
    test::writeBytes(path, std::string(5000, 'x'));
    RoomTable table;
    table[0] = room(3001, "New");
    const std::string text = writeRooms(table, 1, 30);
    std::string error;
    QVERIFY2(writeZoneFile(path.toStdString(), text, error), error.c_str());
    QCOMPARE(test::readBytes(path), text);
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot),
             QStringList{"30.wld"});
    // Through a link, the file it names is written and the link stays.
    QVERIFY(QFile::link(path, dir.filePath("link.wld")));
    QVERIFY2(writeZoneFile(dir.filePath("link.wld").toStdString(), "$\r\n", error), error.c_str());
    QVERIFY(QFileInfo(dir.filePath("link.wld")).isSymLink());
    QCOMPARE(test::readBytes(path), std::string("$\r\n"));
}

QTEST_GUILESS_MAIN(RoomWriterTest)
#include "room_writer_test.moc"
