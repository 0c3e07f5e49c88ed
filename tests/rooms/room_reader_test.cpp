#include "test_main.h"

#include "../world/zone_files.h"

using namespace marl;
using marl::test::Rooms;

class RoomReaderTest : public QObject {
    Q_OBJECT
private slots:
    void reads_data();
    void reads() { test::checkReads<Rooms>(); }
    void refuses_data();
    void refuses() { test::checkRefuses<Rooms>(); }
    void tableGrowsWithItsFile();
};

void RoomReaderTest::reads_data() {
    test::readColumns();
    const QString R = "#1|R~|~|30 0 0|";
    // clang-format off
    QTest::newRow("no exits, no extras") << "#3001|Bakery~|In the bakery.|~|30 ad 1|S|$" << 1
        << "#3001 [Bakery] [In the bakery.] [ad] 1";
    QTest::newRow("empty description") << "#1|Void~|~|30 0 0|S|$" << 1 << "#1 [Void] [] [0] 0";
    QTest::newRow("two lines") << "#1|R~|one|two|~|30 0 0|S|$" << 1 << "#1 [R] [one/two] [0] 0";
    QTest::newRow("~ after the text keeps it") << "#1|R~|A cityguard~|30 0 0|S|$" << 1
        << "#1 [R] [A cityguard] [0] 0";
    QTest::newRow("D1 is east, D2 south") << R + "D1|e|~|~|0 -1 2|D2|s|~|gate~|2 7 3|S|$" << 1
        << "#1 [R] [] [0] 0 South=1 [s] [gate] 2 7 3 East=2 [e] [] 0 -1 2";
    QTest::newRow("empty exit texts") << R + "D5|~|~|0 -1 9|S|$" << 1
        << "#1 [R] [] [0] 0 Down=5 [] [] 0 -1 9";
    QTest::newRow("flags 12 and sector 9 kept, zone ignored") << "#1|R~|~|77 12 9|S|$" << 1
        << "#1 [R] [] [12] 9";
    QTest::newRow("$~ ends the file") << R + "S|$~" << 1 << "#1 [R] [] [0] 0";
    QTest::newRow("extra descriptions") << R + "E|oven hot~|A hot oven.|~|E|sign~|~|S|$" << 1
        << "#1 [R] [] [0] 0 E[oven hot] [A hot oven.] E[sign] []";
    QTest::newRow("exits after extra descriptions") << R + "E|k~|d|~|D0|n|~|~|0 -1 2|S|$" << 1
        << "#1 [R] [] [0] 0 North=0 [n] [] 0 -1 2 E[k] [d]";
    QTest::newRow("blanks at line ends, + signs, runs of blanks")
        << "#1  |R~|~|30 0 +1 |D0 |~|~|0  -1 \t +2\t|E |k~|~|S |$" << 1
        << "#1 [R] [] [0] 1 North=0 [] [] 0 -1 2 E[k] []";
    QTest::newRow("name keeps blanks, rest of ~ lines dropped") << "#1|  Two  ~ junk|~ junk|30 0 0|S|$"
        << 1 << "#1 [  Two  ] [] [0] 0";
    QTest::newRow("the empty zone") << "$" << 0 << "#0 [] [] [] 0";
    QTest::newRow("the empty zone, $~") << "$~" << 0 << "#0 [] [] [] 0";
    QTest::newRow("exit and extra descriptions with empty keywords")
        << R + "D0|~|~|0 -1 2|E|~|first|~|E|k~|second|~|E|~|~|S|$" << 1
        << "#1 [R] [] [0] 0 North=0 [] [] 0 -1 2 E[] [first] E[k] [second] E[] []";
    QTest::newRow("file order kept") << "#3005|B~|~|30 0 0|S|#3001|A~|~|30 0 0|S|$" << 2
        << "#3005 [B] [] [0] 0";
    // clang-format on
}

void RoomReaderTest::refuses_data() {
    test::refusalColumns();
    const QString R = "#1|R~|~|30 0 0|";
    // clang-format off
    QTest::newRow("header without #") << "3001|R~|~|30 0 0|S|$" << 1 << "a room header";
    QTest::newRow("empty file") << "" << 1 << "a room header";
    QTest::newRow("numbers line too short") << "#1|R~|~|30 0|S|$" << 4 << "the line \"<zone>";
    QTest::newRow("sector not a number") << "#1|R~|~|30 0 x|S|$" << 4 << "the line \"<zone>";
    QTest::newRow("two spaces are one: no empty flag text") << "#0|~|~|30  0|S|$" << 4 << "the line \"<zone>";
    QTest::newRow("a line the server does not know") << R + "X|$" << 5 << "an exit \"D<n>\"";
    QTest::newRow("D7") << R + "D7|~|~|0 -1 2|S|$" << 5 << "an exit direction \"D0\" to \"D5\"";
    QTest::newRow("exit line too short") << R + "D0|~|~|0 -1|S|$" << 8 << "an exit line";
    QTest::newRow("key not a number") << R + "D0|~|~|0 k 2|S|$" << 8 << "an exit line";
    QTest::newRow("extra description without ~") << R + "E|k~|never ends|S|$" << 7
        << "the extra description ending in \"~\"";
    QTest::newRow("name without ~") << "#1|R||30 0 0" << 2 << "the room name";
    QTest::newRow("truncated before $") << R + "S" << 6 << "the next room \"#<vnum>\" or the end";
    QTest::newRow("more records than vnums") << QString("#1|~|~|0 0 0|S|").repeated(100000) + "$"
        << 1 + 99999 * 5 << "more than 99999 records";
    QTest::newRow("second header without #") << R + "S|2|R~|~|30 0 0|S|$" << 6 << "the next room";
    // clang-format on
}

void RoomReaderTest::tableGrowsWithItsFile() {
    std::string bytes;
    for (int i = 0; i < 183; ++i)
        bytes += "#" + std::to_string(2500 + i) + "\nRoom~\n~\n25 0 0\nS\n";
    auto table = std::make_unique<RoomTable>();
    QCOMPARE(readRooms(bytes + "$\n", *table), 183);
    QCOMPARE((*table)[182].VNum, 2682);
    // Clearing gives back the slots beyond 101 and forgets the line ends.
    table->clear();
    QCOMPARE(table->size(), std::size_t(101));
    QVERIFY((*table)[100] == RoomRecord{});
    QVERIFY(table->lineEnd == LineEnd::CrLf);
}

MARL_TEST_MAIN(RoomReaderTest)
#include "room_reader_test.moc"
