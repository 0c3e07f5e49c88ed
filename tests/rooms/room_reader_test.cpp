#include <QtTest>

#include "rooms/room_file.h"
#include "test_support.h"

using namespace marl;

namespace {

// One line that says everything the reader made of a room, so that a table
// row can state the expected room in a glance.  Line breaks show as |.
QString describe(const RoomRecord& room) {
    auto text = [](const std::string& s) {
        return QString::fromLatin1(s.c_str()).replace(QStringLiteral("\r\n"), QStringLiteral("|"));
    };
    QString out = QStringLiteral("#%1 [%2] [%3] bits=%4 sector=%5")
                      .arg(room.VNum)
                      .arg(text(room.Name), text(room.Desc), text(room.BitV))
                      .arg(room.SecType);
    for (const ExitDef& def : kExits) {
        const ExitRecord& exit = room.Exits[def.slot];
        if (exit.Absent)
            continue;
        out += QStringLiteral(" %1(%2)=[%3][%4] %5 %6 %7")
                   .arg(QString::fromLatin1(def.caption))
                   .arg(exit.Direction)
                   .arg(text(exit.Desc), text(exit.Keywords))
                   .arg(exit.DoorKind)
                   .arg(exit.KeyVNum)
                   .arg(exit.ToVNum);
    }
    for (int i = 0; i < extraDescCount(room.ExtraDescs); ++i)
        out += QStringLiteral(" E[%1]=[%2]").arg(text(room.ExtraDescs[i].Keywords),
                                                 text(room.ExtraDescs[i].Desc));
    return out;
}

std::string joined(const QStringList& lines, const char* eol) {
    std::string out;
    for (const QString& line : lines)
        out += line.toLatin1().toStdString() + eol;
    return out;
}

} // namespace

class RoomReaderTest : public QObject {
    Q_OBJECT
private slots:
    void readsRooms_data();
    void readsRooms();
    void refuses_data();
    void refuses();
    void keepsFileOrderAndCount();
    void holdsMoreThan101Rooms();
    void remembersLineEnds();
};

void RoomReaderTest::readsRooms_data() {
    QTest::addColumn<QStringList>("file");
    QTest::addColumn<QString>("first");
    QTest::newRow("no exits, no extras")
        << QStringList{"#3001", "The Bakery~", "You are in the bakery.", "~", "30 ad 1", "S", "$"}
        << "#3001 [The Bakery] [You are in the bakery.] bits=ad sector=1";
    QTest::newRow("empty description")
        << QStringList{"#1", "Void~", "~", "30 0 0", "S", "$"} << "#1 [Void] [] bits=0 sector=0";
    QTest::newRow("description of two lines")
        << QStringList{"#1", "R~", "one", "two", "~", "30 0 0", "S", "$"}
        << "#1 [R] [one|two] bits=0 sector=0";
    QTest::newRow("tilde after text keeps the text")
        << QStringList{"#1", "R~", "A cityguard~", "30 0 0", "S", "$"}
        << "#1 [R] [A cityguard] bits=0 sector=0";
    QTest::newRow("D1 is east, D2 is south")
        << QStringList{"#1", "R~", "~", "30 0 0", "D1", "e", "~", "~", "0 -1 2", "D2", "s", "~",
                       "gate~", "2 7 3", "S", "$"}
        << "#1 [R] [] bits=0 sector=0 South(1)=[s][gate] 2 7 3 East(2)=[e][] 0 -1 2";
    QTest::newRow("empty exit description and keywords")
        << QStringList{"#1", "R~", "~", "30 0 0", "D5", "~", "~", "0 -1 9", "S", "$"}
        << "#1 [R] [] bits=0 sector=0 Down(5)=[][] 0 -1 9";
    QTest::newRow("numeric flags kept as text")
        << QStringList{"#1", "R~", "~", "30 12 0", "S", "$"} << "#1 [R] [] bits=12 sector=0";
    QTest::newRow("sector beyond the options kept")
        << QStringList{"#1", "R~", "~", "30 0 9", "S", "$"} << "#1 [R] [] bits=0 sector=9";
    QTest::newRow("zone field ignored")
        << QStringList{"#1", "R~", "~", "77 0 0", "S", "$"} << "#1 [R] [] bits=0 sector=0";
    QTest::newRow("two spaces: empty flag text")
        << QStringList{"#0", "~", "~", "30  0", "S", "$"} << "#0 [] [] bits= sector=0";
    QTest::newRow("$~ ends the file")
        << QStringList{"#1", "R~", "~", "30 0 0", "S", "$~"} << "#1 [R] [] bits=0 sector=0";
    QTest::newRow("extra descriptions")
        << QStringList{"#1", "R~", "~", "30 0 0", "E", "oven hot~", "A hot oven.", "~", "E",
                       "sign~", "~", "S", "$"}
        << "#1 [R] [] bits=0 sector=0 E[oven hot]=[A hot oven.] E[sign]=[]";
    QTest::newRow("exits after extra descriptions")
        << QStringList{"#1", "R~", "~", "30 0 0", "E", "k~", "d", "~", "D0", "n", "~", "~",
                       "0 -1 2", "S", "$"}
        << "#1 [R] [] bits=0 sector=0 North(0)=[n][] 0 -1 2 E[k]=[d]";
    QTest::newRow("blanks at line ends, + signs, runs of blanks")
        << QStringList{"#1  ", "R~", "~", "30 0 +1 ", "D0 ", "~", "~", "0  -1   +2 ", "E ", "k~",
                       "~", "S ", "$"}
        << "#1 [R] [] bits=0 sector=1 North(0)=[][] 0 -1 2 E[k]=[]";
    QTest::newRow("name keeps blanks, rest of ~ line dropped")
        << QStringList{"#1", "  Two  ~ junk", "~", "30 0 0", "S", "$"}
        << "#1 [  Two  ] [] bits=0 sector=0";
    QTest::newRow("latin-1 letters")
        << QStringList{"#1", QString::fromLatin1("Caf\xe9~"), QString::fromLatin1("\xa9 \xff"), "~",
                       "30 0 0", "S", "$"}
        << QString::fromLatin1("#1 [Caf\xe9] [\xa9 \xff] bits=0 sector=0");
}

void RoomReaderTest::readsRooms() {
    QFETCH(QStringList, file);
    QFETCH(QString, first);
    for (const char* eol : {"\r\n", "\n"}) {
        const std::string bytes = joined(file, eol);
        RoomTable table;
        QCOMPARE(readRooms(bytes, table), 1);
        QCOMPARE(describe(table[0]), first);
        QVERIFY(table[1] == RoomRecord{});
    }
}

void RoomReaderTest::refuses_data() {
    QTest::addColumn<QStringList>("file");
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("expected");
    QTest::newRow("header without #") << QStringList{"3001", "R~", "~", "30 0 0", "S", "$"} << 1
                                      << "a room header";
    QTest::newRow("only the end line") << QStringList{"$"} << 1 << "a room header";
    QTest::newRow("empty file") << QStringList{} << 1 << "a room header";
    QTest::newRow("numbers line too short") << QStringList{"#1", "R~", "~", "30 0", "S", "$"} << 4
                                            << "\"<zone> <flags> <sector>\"";
    QTest::newRow("sector not a number") << QStringList{"#1", "R~", "~", "30 0 x", "S", "$"} << 4
                                         << "\"<zone> <flags> <sector>\"";
    QTest::newRow("D7") << QStringList{"#1", "R~", "~", "30 0 0", "D7", "~", "~", "0 -1 2", "S", "$"}
                        << 5 << "\"D0\" to \"D5\"";
    QTest::newRow("exit numbers missing")
        << QStringList{"#1", "R~", "~", "30 0 0", "D0", "~", "~", "0 -1", "S", "$"} << 8
        << "\"<door> <key> <to>\"";
    QTest::newRow("key not a number")
        << QStringList{"#1", "R~", "~", "30 0 0", "D0", "~", "~", "0 k 2", "S", "$"} << 8
        << "\"<door> <key> <to>\"";
    QTest::newRow("extra description without ~")
        << QStringList{"#1", "R~", "~", "30 0 0", "E", "k~", "never ends", "S", "$"} << 7
        << "extra description ending";
    QTest::newRow("name without ~") << QStringList{"#1", "R", "", "30 0 0"} << 2 << "room name";
    QTest::newRow("truncated before $") << QStringList{"#1", "R~", "~", "30 0 0", "S"} << 6
                                        << "or the end of the file";
    QTest::newRow("second header without #")
        << QStringList{"#1", "R~", "~", "30 0 0", "S", "2", "R~", "~", "30 0 0", "S", "$"} << 6
        << "the next room \"#<vnum>\"";
}

void RoomReaderTest::refuses() {
    QFETCH(QStringList, file);
    QFETCH(int, line);
    QFETCH(QString, expected);
    const std::string bytes = joined(file, "\n");
    RoomTable table;
    try {
        readRooms(bytes, table);
        QFAIL("the file was accepted");
    } catch (const FormatError& error) {
        QCOMPARE(error.line(), line);
        QVERIFY2(QString::fromStdString(error.expected()).contains(expected),
                 error.expected().c_str());
    }
}

void RoomReaderTest::keepsFileOrderAndCount() {
    const std::string bytes = test::crlf({"#3005", "B~", "~", "30 0 0", "S", "#3001", "A~", "~",
                                          "30 0 0", "S", "$"});
    RoomTable table;
    QCOMPARE(readRooms(bytes, table), 2);
    QCOMPARE(table[0].VNum, 3005);
    QCOMPARE(table[1].VNum, 3001);
}

void RoomReaderTest::holdsMoreThan101Rooms() {
    std::string bytes;
    for (int i = 0; i < 183; ++i)
        bytes += "#" + std::to_string(2500 + i) + "\nRoom~\n~\n25 0 0\nS\n";
    bytes += "$\n";
    RoomTable table;
    QCOMPARE(readRooms(bytes, table), 183);
    QCOMPARE(table[182].VNum, 2682);
    QVERIFY(table.size() >= 183);
}

void RoomReaderTest::remembersLineEnds() {
    RoomTable table;
    const std::string lfFile = test::lf({"#1", "R~", "", "~", "30 0 0", "S", "$"});
    readRooms(lfFile, table);
    QVERIFY(table.lineEnd == LineEnd::Lf);
    QCOMPARE(writeRooms(table, 1, 30), lfFile);
    table.clear();
    QVERIFY(table.lineEnd == LineEnd::CrLf);
}

QTEST_GUILESS_MAIN(RoomReaderTest)
#include "room_reader_test.moc"
