#include "test_main.h"

#include "../world/zone_files.h"

using namespace marl;

class RoomWriterTest : public QObject {
    Q_OBJECT
private slots:
    void writes_data();
    void writes() { test::checkWrites<test::Rooms>(); }
    void failedWriteLeavesTheOldFile_data();
    void failedWriteLeavesTheOldFile();
};

void RoomWriterTest::writes_data() {
    test::writeColumns();
    const QString R = QStringLiteral("#1|R~|~|30 0 0|");
    // clang-format off
    QTest::newRow("no exits, no extras: six lines") << "#3001|Bakery~|Warm.|~|30 0 1|S|$" << "=";
    QTest::newRow("empty description: ~ alone") << "#1|R~|~|30 ad 0|S|$" << "=";
    QTest::newRow("empty texts read as an empty line and ~: ~ alone")
        << "#1|R~||~|30 0 0|D0||~|~|0 -1 1|E|k~||~|S|$" << R + "D0|~|~|0 -1 1|E|k~|~|S|$";
    QTest::newRow("exits in the order of their direction numbers")
        << R + "D5|d|~|~|0 -1 -1|D4|~|~|0 -1 5|D3|~|~|0 -1 4|D1|e|~|door~|1 3005 3|D2|~|~|0 -1 2|D0|~|~|0 -1 1|S|$"
        << R + "D0|~|~|0 -1 1|D1|e|~|door~|1 3005 3|D2|~|~|0 -1 2|D3|~|~|0 -1 4|D4|~|~|0 -1 5|D5|d|~|~|0 -1 -1|S|$";
    QTest::newRow("extras with empty keywords kept in their place")
        << R + "E|oven~|A hot oven.|~|E|bread~|One.|Two.|~|E|~|unseen|~|E|~|~|E|lost~|x|~|S|$" << "=";
    QTest::newRow("the editor's zone, flags 12 and sector 9 as read") << "#1|R~|~|77 12 9|S|$"
        << "#1|R~|~|30 12 9|S|$";
    QTest::newRow("what the reader drops is not written, the end line is kept")
        << "#1 |R~ junk|Desc~|77 0 +1 extra|D1 |~ junk|k~ junk|1  -1   +2|E |k~|x|~|S junk|$~"
        << "#1|R~|Desc|~|30 0 1|D1|~|k~|1 -1 2|E|k~|x|~|S|$~";
    QTest::newRow("exits after extras come first")
        << "#1|R~|~|30 0 0|E|k~|~|D5|~|~|0 0 1|S|$" << "#1|R~|~|30 0 0|D5|~|~|0 0 1|E|k~|~|S|$";
    QTest::newRow("no rooms: the end line alone") << "" << "$";
    QTest::newRow("the empty zone") << "$" << "=";
    // clang-format on
}

void RoomWriterTest::failedWriteLeavesTheOldFile_data() {
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("blocker"); // a regular file; none: 30.wld marked read-only
    QTest::addColumn<QStringList>("left");
    // Permission bits do not stop root, so the write is made impossible by
    // what stands in the way, or refused because the file is marked read-only
    // (a folder, a pipe or a link in the way are zone_file_test's).
    // clang-format off
    QTest::newRow("folder part is a regular file") << "zone/30.wld" << "zone"
        << QStringList{"30.wld", "zone"};
    QTest::newRow("the old file is read-only") << "30.wld" << "" << QStringList{"30.wld"};
    // clang-format on
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
    else
        test::writeBytes(dir.filePath(blocker), "not a folder");
    std::string error;
    QVERIFY(!writeZoneFile(dir.filePath(target).toStdString(), "#2\r\n", error));
    QVERIFY2(!error.empty(), "the failure carries the system's reason");
    QCOMPARE(test::readBytes(dir.filePath("30.wld")), old);
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot), left);
}

MARL_TEST_MAIN(RoomWriterTest)
#include "room_writer_test.moc"
