#include "test_main.h"

#include "../world/zone_files.h"

using namespace marl;
using marl::test::Objects;

namespace {

// An object whose lines a row varies: the header, and what follows the
// weight line.
QString bread(const QString& header = "#3009", const QString& after = "$") {
    return header +
           "|waybread bread~|a waybread~|Some waybread is here.~|~|19 0 a|24 0 0 0|1 50 50|" +
           after;
}
const QString kBread =
    "#3009 [waybread bread] [a waybread] [Some waybread is here.] [] 19 [0] [a] 24 "
    "0 0 0 1 50 50";
// An object up to its weight line, and how it reads.
const QString kHead = "#1|a~|b~|c~|~|1 0 0|0 0 0 0|0 0 0|";
const QString kShown = "#1 [a] [b] [c] [] 1 [0] [0] 0 0 0 0 0 0 0";

} // namespace

class ObjectFileTest : public QObject {
    Q_OBJECT
private slots:
    void reads_data();
    void reads() { test::checkReads<Objects>(); }
    void refuses_data();
    void refuses() { test::checkRefuses<Objects>(); }
    void writes_data();
    void writes() { test::checkWrites<Objects>(); }
    void clearingKeepsWhatLivesBesideTheFile();
    void listsHoldTheirFixedSlots();
};

void ObjectFileTest::reads_data() {
    test::readColumns();
    // clang-format off
    QTest::newRow("no blocks, empty action description") << bread() << 1 << kBread;
    QTest::newRow("action description keeps its line breaks")
        << "#1|a~|b~|c~|You eat it.|Yum.|~|1 0 0|0 0 0 0|0 0 0|$" << 1
        << QString(kShown).replace("[c] []", "[c] [You eat it./Yum./]");
    QTest::newRow("extra description, ~ alone") << kHead + "E|sign~|The sign reads: hello.|~|$" << 1
        << kShown + " E[sign] [The sign reads: hello.]";
    QTest::newRow("extra descriptions empty, of two lines, ~ after the text")
        << kHead + "E|a~|~|E|b~|one||two|~|E|c~|hello~|E|d~|x~|$" << 1
        << kShown + " E[a] [] E[b] [one//two] E[c] [hello] E[d] [x]";
    QTest::newRow("extra descriptions and affects in any order")
        << kHead + "A|3 1|E|k~|d|~|A|19 -1|E|l~|~|$" << 1 << kShown + " E[k] [d] E[l] [] A3 1 A19 -1";
    QTest::newRow("blanks at line ends, + signs, runs of blanks")
        << "#1 |a~|b~|c~|~|5 mjl 8193 |0  3 +4 11 | 8 10000   800|A |17  2|E |k~|~|$" << 1
        << "#1 [a] [b] [c] [] 5 [mjl] [8193] 0 3 4 11 8 10000 800 E[k] [] A17 2";
    QTest::newRow("a type without an option kept, further fields ignored")
        << "#1|a~|b~|c~|~|7 0 0 extra|0 0 0 0|0 0 0|$" << 1 << QString(kShown).replace("1 [0]", "7 [0]");
    QTest::newRow("next object directly after the weight line") << bread("#3009", bread("#3001")) << 2
        << kBread;
    QTest::newRow("next object after the blocks") << bread("#3009", "A|1 1|" + bread("#3001")) << 2
        << kBread + " A1 1";
    QTest::newRow("$~ ends the file") << bread("#3009", "$~") << 1 << kBread;
    QTest::newRow("the empty zone") << "$" << 0 << "#0 [] [] [] [] 0 [] [] 0 0 0 0 0 0 0";
    QTest::newRow("empty keywords and location 0 in the lists")
        << kHead + "E|~|x|~|E|k~|y|~|A|0 5|A|3 1|$" << 1 << kShown + " E[] [x] E[k] [y] A0 5 A3 1";
    // clang-format on
}

void ObjectFileTest::refuses_data() {
    test::refusalColumns();
    auto with = [](const QString& from, const QString& to) { return bread().replace(from, to); };
    // clang-format off
    QTest::newRow("header without #") << bread("3009") << 1 << "an object header";
    QTest::newRow("truncated inside a record") << bread().section('|', 0, 5) << 7 << "the values line";
    QTest::newRow("missing $ after an affect") << bread("#3009", "A|1 2") << 11
        << "the next object \"#<vnum>\" or the end";
    QTest::newRow("type not a number") << with("19 0 a", "food 0 a") << 6
        << "the type line \"<type> <effect flags> <wear flags>\"";
    QTest::newRow("type line without wear flags") << with("19 0 a", "19 0") << 6 << "the type line";
    QTest::newRow("two blanks are one: no empty flag text") << with("19 0 a", "19  a") << 6 << "the type line";
    QTest::newRow("a line the server does not know") << bread("#3009", "X|$") << 9 << "an extra description";
    QTest::newRow("three values") << with("24 0 0 0", "24 0 0") << 7
        << "the values line \"<value 0> <value 1> <value 2> <value 3>\"";
    QTest::newRow("cost beyond 32 bits") << with("1 50 50", "1 5000000000 50") << 8
        << "the weight line \"<weight> <cost> <rent per day>\"";
    QTest::newRow("affect line too short") << bread("#3009", "A|1|$") << 10
        << "an affect line \"<location> <modifier>\"";
    QTest::newRow("affect location beyond 16 bits") << bread("#3009", "A|70000 1|$") << 10
        << "an affect line";
    QTest::newRow("extra description without its ~") << bread("#3009", "E|sign~|never ends|$") << 11
        << "the extra description ending in \"~\"";
    QTest::newRow("129 affects") << bread("#3009", QString("A|1 1|").repeated(129) + "$") << 9 + 128 * 2
        << "at most 128 affects";
    // clang-format on
}

void ObjectFileTest::writes_data() {
    test::writeColumns();
    // clang-format off
    QTest::newRow("no blocks: the next object follows at once") << kHead + kHead + "$" << "=";
    QTest::newRow("extra descriptions before affects, a line break before each ~")
        << kHead + "A|3  +1 |E|k~|hello~|E|l~||~|$" << kHead + "E|k~|hello|~|E|l~|~|A|3 1|$";
    QTest::newRow("action description as it stands") << "#1|a~|b~|c~|line||~|1 0 0|0 0 0 0|0 0 0|$" << "=";
    QTest::newRow("flag texts as read, numbers plain")
        << "#+1|a~|b~|c~|~|+5 hg 8193 extra|-0 +3 -4 0  |007 5 1|$"
        << "#1|a~|b~|c~|~|5 hg 8193|0 3 -4 0|7 5 1|$";
    QTest::newRow("empty keywords and location 0 kept in their place")
        << kHead + "E|k~|d|~|E|~|x|~|E|~|~|E|kept~|y|~|A|1 2|A|0 5|A|3 1|A|0 0|$" << "=";
    QTest::newRow("no objects: the end line alone") << "" << "$";
    QTest::newRow("the empty zone") << "$" << "=";
    // clang-format on
}

void ObjectFileTest::clearingKeepsWhatLivesBesideTheFile() {
    // The light's duration and the affects' captions belong to the dialogs,
    // not to the file: a save's reload keeps them.
    auto table = std::make_unique<ObjectTable>();
    // Every field the file gives is set, and the record keeps its bytes.
    readObjects(test::lines("#3009|bread~|a bread~|A bread.~|Munch.~|19 a b|24 1 2 3|1 50 50|"
                            "E|k~|d|~|A|1 2|A|3 4|$",
                            "\n"),
                *table);
    QVERIFY(!(*table)[0].Source.empty());
    (*table)[0].SavedLightDuration = 24;
    (*table)[0].Affects[1].LocationName = "Int";
    (*table)[5].Values[2] = 7;
    table->clear();
    ObjectRecord expected;
    expected.SavedLightDuration = 24;
    expected.Affects[1].LocationName = "Int";
    QVERIFY((*table)[0] == expected);
    QVERIFY((*table)[5] == ObjectRecord{});
}

void ObjectFileTest::listsHoldTheirFixedSlots() {
    // Equal by what the 128 slots hold, however many are stored.
    ObjectRecord o, other;
    o.ExtraDescs[2].Keywords = other.ExtraDescs[2].Keywords = "third";
    other.Affects[9] = {};
    QVERIFY(o == other);
    other.Affects[9].Modifier = 1;
    QVERIFY(!(o == other) && !(other == o));
    QVERIFY_THROWS_EXCEPTION(std::out_of_range, o.ExtraDescs[128]);
    // The whole list as one array, as the extra-descriptions dialog edits it.
    std::span<ExtraDesc> all(o.ExtraDescs);
    all[127].Desc = "last";
    QCOMPARE(std::as_const(o).ExtraDescs[127].Desc, std::string("last"));
    QCOMPARE(std::as_const(o).ExtraDescs[2].Keywords, std::string("third"));
}

MARL_TEST_MAIN(ObjectFileTest)
#include "object_file_test.moc"
