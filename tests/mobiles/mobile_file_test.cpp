#include "test_main.h"

#include "../world/zone_files.h"

using namespace marl;
using marl::test::Mobiles;

namespace {

// A mobile whose lines a row varies: its header, and what follows its
// position line.
QString guard(const QString& header = "#3001", const QString& after = "$") {
    return header +
           "|guard~|the guard~|A guard.|~|~|ab 0 350 S|10 9 4 2d8+100 1d8+4|500 9000|8 8 1|" +
           after;
}
const QString kGuard = "#3001 [guard] [the guard] [A guard.] [] [ab] [0] 350 [S] 10 9 4 [2d8+100] "
                       "[1d8+4] 500 9000 8 8 1";
// A mobile around its flags line, and how it reads with `0 0 0 S`.
const QString kHead = "#1|a~|b~|~|~|";
const QString kTail = "|1 2 3 1d1+1 1d1+1|0 0|8 8 0";
const QString kS = "#1 [a] [b] [] [] [0] [0] 0 [S] 1 2 3 [1d1+1] [1d1+1] 0 0 8 8 0";

} // namespace

class MobileFileTest : public QObject {
    Q_OBJECT
private slots:
    void reads_data();
    void reads() { test::checkReads<Mobiles>(); }
    void refuses_data();
    void refuses() { test::checkRefuses<Mobiles>(); }
    void writes_data();
    void writes() { test::checkWrites<Mobiles>(); }
    void changedValues_data();
    void changedValues();
};

void MobileFileTest::reads_data() {
    test::readColumns();
    const QString S = kHead + "0 0 0 S" + kTail;
    // clang-format off
    QTest::newRow("simple mobile") << guard() << 1 << kGuard;
    QTest::newRow("empty and * lines before the next") << guard("#3001", "|* rat|" + S + "|$") << 2 << kGuard;
    QTest::newRow("S mobile directly followed by the next") << guard("#3001", S + "|$") << 2 << kGuard;
    QTest::newRow("extended block") << guard("#3001", "BareHandAttack: 4|Str: 18|StrAdd: 50|E|$") << 1
        << kGuard + " BareHandAttack:4 Str:18 StrAdd:50";
    QTest::newRow("every keyword to its own field")
        << guard("#3001", "Cha: 8|Con: 7|Dex: 6|Wis: 5|Int: 4|StrAdd: 3|Str: 12|BareHandAttack: 1|E|$")
        << 1 << kGuard + " BareHandAttack:1 Str:12 StrAdd:3 Int:4 Wis:5 Dex:6 Con:7 Cha:8";
    QTest::newRow("keywords in any case, the last wins, values as the server takes them")
        << guard("#3001", "Attack: 3|str: 18|STR:12|Dex: high|Cha: 99|E|$") << 1
        << kGuard + " Str:12 Dex:3 Cha:25";
    QTest::newRow("empty extended block, then the next") << guard("#3001", "E|" + S + "|$") << 2
        << kGuard;
    QTest::newRow("block decided by the line, not the letter") << S + "|Str: 18|E|$" << 1
        << kS + " Str:18";
    QTest::newRow("E letter without a block") << kHead + "0 0 0 E" + kTail + "|$" << 1
        << QString(kS).replace("[S]", "[E]");
    QTest::newRow("detailed description of two lines, flags abg 0 -350 E")
        << "#1|a~|b~|~|Strong.|Very strong.|~|abg 0 -350 E" + kTail + "|E|$" << 1
        << "#1 [a] [b] [] [Strong./Very strong.] [abg] [0] -350 [E] 1 2 3 [1d1+1] [1d1+1] 0 0 8 8 0";
    QTest::newRow("~ after the text keeps the text") << "#1|a~|b~|A cityguard~|~|0 0 0 S" + kTail + "|$"
        << 1 << QString(kS).replace("[] [] [0]", "[A cityguard] [] [0]");
    QTest::newRow("header with blanks after the number") << guard("#3001  ") << 1 << kGuard;
    QTest::newRow("blanks at line ends, + signs, runs of blanks")
        << kHead + "c k +200 S |6  14 +4   3d5+70 1d8+0 |40   1500 | 5 5  1|Str: +18 |E|$" << 1
        << "#1 [a] [b] [] [] [c] [k] 200 [S] 6 14 4 [3d5+70] [1d8+0] 40 1500 5 5 1 Str:18";
    QTest::newRow("the empty zone") << "$~" << 0 << "#0 [] [] [] [] [] [] 0 [] 0 0 0 [0] [0] 0 0 0 0 0";
    QTest::newRow("dice with blanks before their numbers, positions and gender beyond the options")
        << kHead + "0 0 0 S|1 2 3 7d 1+ 0 1d6+-2|0 0|7 3 5|$" << 1
        << QString(kS).replace("[1d1+1] [1d1+1] 0 0 8 8 0", "[7d1+0] [1d6+-2] 0 0 7 3 5");
    // clang-format on
}

void MobileFileTest::refuses_data() {
    test::refusalColumns();
    auto with = [](const QString& from, const QString& to) { return guard().replace(from, to); };
    // clang-format off
    QTest::newRow("header without #") << guard("3001") << 1 << "a mobile header";
    QTest::newRow("truncated inside a record") << guard().section('|', 0, 7) << 9 << "the gold line";
    QTest::newRow("missing $") << guard().section('|', 0, 9) << 11
        << "the next mobile \"#<vnum>\" or the end of the file \"$\"";
    QTest::newRow("gold not a number") << with("500 9000", "5OO 9000") << 9
        << "the gold line \"<gold> <xp>\"";
    QTest::newRow("gold line too short") << with("500 9000", "500") << 9 << "the gold line";
    QTest::newRow("flags line without a type letter") << with("ab 0 350 S", "ab 0 350") << 7
        << "the flags line \"<action flags> <affect flags> <alignment> <type letter>\"";
    QTest::newRow("level beyond 16 bits") << with("10 9 4 ", "40000 9 4 ") << 8 << "the level line";
    QTest::newRow("level line without damage dice") << with(" 1d8+4", "") << 8 << "the level line";
    QTest::newRow("position not a number") << with("8 8 1", "8 standing 1") << 10 << "the position line";
    QTest::newRow("empty type letter") << with("ab 0 350 S", "ab 0 350 ") << 7 << "the flags line";
    QTest::newRow("two blanks are one: no empty flag text") << with("ab 0 350 S", "ab  350 S") << 7
        << "the flags line";
    QTest::newRow("hit dice without d") << with("2d8+100", "7") << 8 << "the level line";
    QTest::newRow("a header inside the extended block") << guard("#3001", "Str: 4|#3002|E|$") << 12
        << "the end of the block \"E\"";
    QTest::newRow("extended block without its E") << guard("#3001", "Str: 18|$") << 13
        << "the end of the block \"E\"";
    QTest::newRow("long description without ~") << "#1|a~|b~|never ends" << 4 << "the long description";
    // clang-format on
}

void MobileFileTest::writes_data() {
    test::writeColumns();
    const QString head = "#1|a~|b~|L|~|D|~|";
    const QString E = head + "0 0 0 E" + kTail;
    // clang-format off
    QTest::newRow("what the reader drops is not written")
        << "#1|a~ junk|b~|L~|D|~ junk|0 0 +5 S extra|1  2 3 1d1+1 1d1+1 more|0 0 0|8 8 0 0|$~"
        << head + "0 0 5 S|1 2 3 1d1+1 1d1+1|0 0|8 8 0|$~";
    QTest::newRow("extended lines as the file has them, zeros and unknown keywords too")
        << E + "|StrAdd: 50|BareHandAttack: 0|Attack: 3|*|str:18|E|$" << "=";
    QTest::newRow("every CR at the end of an extended line dropped, as the server drops them")
        << E + "|Cha: 10\r|E\r|$" << E + "|Cha: 10|E|$";
    QTest::newRow("bare-hand attack 5") << E + "|BareHandAttack: 5|E|$" << "=";
    QTest::newRow("E letter without values: an empty block") << E + "|$" << E + "|E|$";
    QTest::newRow("an S mobile's block is closed all the same")
        << head + "0 0 0 S" + kTail + "|Con: 9|E|$" << "=";
    QTest::newRow("negative alignment, zero gold")
        << head + "0 0 -350 S|1 -2 -3 1d1+1 1d1+1|0 -7|8 8 0|$" << "=";
    QTest::newRow("empty descriptions as ~ alone, one of three lines")
        << "#1|a~|~|~|one||three|~|0 0 0 S" + kTail + "|$" << "=";
    QTest::newRow("empty descriptions read as an empty line and ~")
        << "#1|a~|~||~||~|0 0 0 S" + kTail + "|$" << "#1|a~|~|~|~|0 0 0 S" + kTail + "|$";
    QTest::newRow("no mobiles: the end line alone") << "" << "$";
    QTest::newRow("the empty zone") << "$" << "=";
    // clang-format on
}

// An extended block read, one value changed as the especs dialog changes
// it, and the block written: the lines of other values as they stood.
void MobileFileTest::changedValues_data() {
    test::columns<QString, QString, int, QString>({"block", "keyword", "value", "written"});
    // clang-format off
    QTest::newRow("changed in place, in the editor's form") << "str:18|dex:5" << "Str:" << 20 << "Str: 20|dex:5";
    QTest::newRow("taken away: every line of it goes") << "Str: 10|* x|str:12" << "Str:" << 0 << "* x";
    QTest::newRow("given anew: after the others") << "Str: 0|Wings: 2" << "Dex:" << 9 << "Str: 0|Wings: 2|Dex: 9";
    QTest::newRow("the same value: the line as it stands") << "Str:99" << "Str:" << 25 << "Str:99";
    // clang-format on
}

void MobileFileTest::changedValues() {
    QFETCH(QString, block);
    QFETCH(QString, keyword);
    QFETCH(int, value);
    QFETCH(QString, written);
    const QString mobile = guard("#3001", block + "|E|$").replace(" 350 S", " 350 E");
    auto table = std::make_unique<MobileTable>();
    QCOMPARE(readMobiles(test::lines(mobile, "\n"), *table), 1);
    for (const ExtendedDef& def : kExtendedValues)
        if (keyword == def.keyword)
            (*table)[0].*def.field = std::int16_t(value);
    (*table)[0].Source.clear();
    QCOMPARE(QString::fromStdString(writeMobiles(*table, 1)),
             QString::fromStdString(
                 test::lines(guard("#3001", written + "|E|$").replace(" 350 S", " 350 E"), "\n")));
}

MARL_TEST_MAIN(MobileFileTest)
#include "mobile_file_test.moc"
