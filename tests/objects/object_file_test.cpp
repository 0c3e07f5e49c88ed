#include <QtTest>

#include "objects/object_file.h"
#include "test_support.h"
#include "world/zone_file.h"

using namespace marl;

namespace {

// One line that says everything the reader made of an object, so that a
// table row states the expected object at a glance.  Line breaks show as |.
QString describe(const ObjectRecord& o) {
    auto text = [](const std::string& s) {
        return QString::fromLatin1(s.c_str()).replace(QStringLiteral("\r\n"), QStringLiteral("|"));
    };
    QString out = QStringLiteral("#%1 [%2] [%3] [%4] [%5] %6 [%7] [%8]")
                      .arg(o.VNum)
                      .arg(text(o.Alias), text(o.SDesc), text(o.LDesc), text(o.ADesc))
                      .arg(o.OType)
                      .arg(text(o.EBitV), text(o.WBitV));
    out += QStringLiteral(" %1 %2 %3 %4 %5 %6 %7")
               .arg(o.Values[0])
               .arg(o.Values[1])
               .arg(o.Values[2])
               .arg(o.Values[3])
               .arg(o.Weight)
               .arg(o.Cost)
               .arg(o.RPD);
    for (int i = 0; i < extraDescCount(o.ExtraDescs); ++i)
        out += QStringLiteral(" E[%1]=[%2]")
                   .arg(text(o.ExtraDescs[i].Keywords), text(o.ExtraDescs[i].Desc));
    for (int i = 0; i < affectCount(o); ++i)
        out += QStringLiteral(" A%1:%2").arg(o.Affects[i].Location).arg(o.Affects[i].Modifier);
    return out;
}

std::string joined(const QStringList& lines, const char* eol) {
    std::string out;
    for (const QString& line : lines)
        out += line.toLatin1().toStdString() + eol;
    return out;
}

// An object whose lines a row can vary around.
QStringList object(const QString& header = QStringLiteral("#3009"),
                   const QStringList& after = {QStringLiteral("$")}) {
    return QStringList{header, "waybread bread~", "a waybread~", "Some waybread is here.~",
                       "~",    "19 0 a",          "24 0 0 0",    "1 50 50"} +
           after;
}

const QString kBread = QStringLiteral(
    "#3009 [waybread bread] [a waybread] [Some waybread is here.] [] 19 [0] [a] 24 0 "
    "0 0 1 50 50");

} // namespace

class ObjectFileTest : public QObject {
    Q_OBJECT
private slots:
    void readsObjects_data();
    void readsObjects();
    void refuses_data();
    void refuses();
    void refusedFileLeavesNoTable();
    void keepsFileOrderAndHoldsMoreThan101();
    void flagLetters_data();
    void flagLetters();
    void writes_data();
    void writes();
    void writtenFileReadsBackAndWritesTheSame();
    void emptyZoneWritesAClearedObjectThatReadsBack();
    void clearingKeepsWhatLivesBesideTheFile();
    void listsReadAsTheirFixedSlots();
};

void ObjectFileTest::readsObjects_data() {
    QTest::addColumn<QStringList>("file");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("first");

    QTest::newRow("no blocks, empty action description") << object() << 1 << kBread;
    QTest::newRow("two-line action description keeps its line breaks")
        << QStringList{"#1",     "a~",       "b~",      "c~", "You eat it.", "Yum.", "~",
                       "19 0 a", "24 0 0 0", "1 50 50", "$"}
        << 1 << "#1 [a] [b] [c] [You eat it.|Yum.|] 19 [0] [a] 24 0 0 0 1 50 50";
    QTest::newRow("extra description, tilde alone")
        << object("#3009", {"E", "sign~", "The sign reads: hello.", "~", "$"}) << 1
        << kBread + " E[sign]=[The sign reads: hello.]";
    QTest::newRow("extra description empty")
        << object("#3009", {"E", "sign~", "~", "$"}) << 1 << kBread + " E[sign]=[]";
    QTest::newRow("extra description with tilde after its text")
        << object("#3009", {"E", "sign~", "hello~", "E", "x~", "x~", "$"}) << 1
        << kBread + " E[sign]=[hello] E[x]=[x]";
    QTest::newRow("extra description of two lines")
        << object("#3009", {"E", "sign~", "one", "", "two", "~", "$"}) << 1
        << kBread + " E[sign]=[one||two]";
    QTest::newRow("affects") << object("#3009", {"A", "1 2", "A", "19 -1", "$"}) << 1
                             << kBread + " A1:2 A19:-1";
    QTest::newRow("extra descriptions before affects")
        << object("#3009", {"E", "k~", "d", "~", "A", "3 1", "$"}) << 1
        << kBread + " E[k]=[d] A3:1";
    QTest::newRow("affects before extra descriptions")
        << object("#3009", {"A", "3 1", "A", "4 2", "E", "k~", "d", "~", "$"}) << 1
        << kBread + " E[k]=[d] A3:1 A4:2";
    QTest::newRow("blocks interleaved")
        << object("#3009", {"A", "3 1", "E", "k~", "d", "~", "A", "4 2", "E", "l~", "~", "$"}) << 1
        << kBread + " E[k]=[d] E[l]=[] A3:1 A4:2";
    QTest::newRow("blanks at line ends, + signs, runs of blanks")
        << QStringList{"#1 ",         "a~",
                       "b~",          "c~",
                       "~",           "5 mjl 8193 ",
                       "0  3 +4 11 ", " 8 10000   800",
                       "A ",          "17  2",
                       "E ",          "k~",
                       "~",           "$"}
        << 1 << "#1 [a] [b] [c] [] 5 [mjl] [8193] 0 3 4 11 8 10000 800 E[k]=[] A17:2";
    QTest::newRow("two blanks in the type line give an empty flag text")
        << QStringList{"#1", "a~", "b~", "c~", "~", "9  a", "0 0 0 0", "0 0 0", "$"} << 1
        << "#1 [a] [b] [c] [] 9 [] [a] 0 0 0 0 0 0 0";
    QTest::newRow("empty flag texts after blanks")
        << QStringList{"#0", "~", "~", "~", "~", "0  ", "0 0 0 0", "0 0 0", "$"} << 1
        << "#0 [] [] [] [] 0 [] [] 0 0 0 0 0 0 0";
    QTest::newRow("type without an option kept")
        << QStringList{"#1", "a~", "b~", "c~", "~", "7 0 0 extra", "0 0 0 0", "0 0 0", "$"} << 1
        << "#1 [a] [b] [c] [] 7 [0] [0] 0 0 0 0 0 0 0";
    QTest::newRow("next object directly after the weight line")
        << object("#3009", object("#3010")) << 2 << kBread;
    QTest::newRow("next object after blocks")
        << object("#3009", QStringList{"A", "1 1"} + object("#3010")) << 2 << kBread + " A1:1";
    QTest::newRow("$~ ends the file") << object("#3009", {"$~"}) << 1 << kBread;
    QTest::newRow("rest of ~ lines dropped")
        << QStringList{"#1",    "a~ x", "b~ y", "c~ z", "~ w", "1 0 0", "0 0 0 0",
                       "0 0 0", "E",    "k~ v", "d",    "~ u", "$"}
        << 1 << "#1 [a] [b] [c] [] 1 [0] [0] 0 0 0 0 0 0 0 E[k]=[d]";
    QTest::newRow("latin-1 letters")
        << QStringList{"#1",
                       QString::fromLatin1("\xe9p\xe9~"),
                       "b~",
                       "c~",
                       "~",
                       "1 0 0",
                       "0 0 0 0",
                       "0 0 0",
                       "E",
                       "k~",
                       QString::fromLatin1("\xa9"),
                       "~",
                       "$"}
        << 1
        << QString::fromLatin1("#1 [\xe9p\xe9] [b] [c] [] 1 [0] [0] 0 0 0 0 0 0 0 E[k]=[\xa9]");
}

void ObjectFileTest::readsObjects() {
    QFETCH(QStringList, file);
    QFETCH(int, count);
    QFETCH(QString, first);
    for (const char* eol : {"\r\n", "\n"}) {
        ObjectTable table;
        QCOMPARE(readObjects(joined(file, eol), table), count);
        QCOMPARE(describe(table[0]), first);
        QVERIFY(table[static_cast<std::size_t>(count)] == ObjectRecord{});
        QVERIFY(table.lineEnd == (eol[0] == '\r' ? LineEnd::CrLf : LineEnd::Lf));
    }
}

void ObjectFileTest::refuses_data() {
    QTest::addColumn<QStringList>("file");
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("expected");

    QTest::newRow("header without #") << object("3009") << 1 << "an object header";
    QTest::newRow("only the end line") << QStringList{"$"} << 1 << "an object header";
    QTest::newRow("truncated inside a record") << object().mid(0, 6) << 7 << "the values line";
    QTest::newRow("missing $") << object("#3009", {}) << 9 << "or the end of the file \"$\"";
    QTest::newRow("missing $ after an affect")
        << object("#3009", {"A", "1 2"}) << 11 << "or the end of the file \"$\"";
    QTest::newRow("second header without #")
        << object("#3009", object("3010")) << 9 << "the next object \"#<vnum>\"";
    QTest::newRow("type not a number")
        << QStringList(object()).replaceInStrings("19 0 a", "food 0 a") << 6
        << "the type line \"<type> <effect flags> <wear flags>\"";
    QTest::newRow("type line without wear flags")
        << QStringList(object()).replaceInStrings("19 0 a", "19 0") << 6 << "the type line";
    QTest::newRow("value not a number")
        << QStringList(object()).replaceInStrings("24 0 0 0", "24 0 x 0") << 7
        << "the values line \"<value 0> <value 1> <value 2> <value 3>\"";
    QTest::newRow("three values") << QStringList(object()).replaceInStrings("24 0 0 0", "24 0 0")
                                  << 7 << "the values line";
    QTest::newRow("cost beyond 32 bits")
        << QStringList(object()).replaceInStrings("1 50 50", "1 5000000000 50") << 8
        << "the weight line \"<weight> <cost> <rent per day>\"";
    QTest::newRow("affect without its numbers")
        << object("#3009", {"A", "1", "$"}) << 10 << "an affect line \"<location> <modifier>\"";
    QTest::newRow("affect location beyond 16 bits")
        << object("#3009", {"A", "70000 1", "$"}) << 10 << "an affect line";
    QTest::newRow("extra description block without its ~")
        << object("#3009", {"E", "sign~", "never ends", "$"}) << 11
        << "the extra description ending";
    QTest::newRow("extra description keywords without ~")
        << object("#3009", {"E", "sign", "$"}) << 10 << "the extra description keywords";
    QTest::newRow("action description without ~")
        << QStringList{"#1", "a~", "b~", "c~", "never", "ends"} << 5 << "the action description";
}

void ObjectFileTest::refuses() {
    QFETCH(QStringList, file);
    QFETCH(int, line);
    QFETCH(QString, expected);
    for (const char* eol : {"\r\n", "\n"}) {
        ObjectTable table;
        try {
            readObjects(joined(file, eol), table);
            QFAIL("the file was accepted");
        } catch (const FormatError& error) {
            QCOMPARE(error.line(), line);
            QVERIFY2(QString::fromStdString(error.expected()).contains(expected),
                     error.expected().c_str());
        }
    }
}

void ObjectFileTest::refusedFileLeavesNoTable() {
    QTemporaryDir dir;
    const QString path = dir.filePath("30.obj");
    QStringList lines = object("#3009", object("#3010", {"E", "sign~", "never ends", "$"}));
    test::writeBytes(path, joined(lines, "\n"));
    ObjectTable table;
    const LoadOutcome outcome = loadZoneTable(path.toStdString(), table, readObjects);
    QVERIFY(!outcome.ok);
    QCOMPARE(describeLoadFailure("30.obj", outcome),
             std::string("30.obj, line 19: expected the extra description ending in \"~\""));
    QVERIFY(table[0] == ObjectRecord{});
    QVERIFY(table[1] == ObjectRecord{});

    // More than 128 extra descriptions in one object cannot be held.
    QStringList many = object("#3009", {});
    for (int i = 0; i < 129; ++i)
        many += QStringList{"E", "k~", "~"};
    test::writeBytes(path, joined(many + QStringList{"$"}, "\r\n"));
    const LoadOutcome tooMany = loadZoneTable(path.toStdString(), table, readObjects);
    QVERIFY(!tooMany.ok);
    QCOMPARE(tooMany.line, 9 + 128 * 3);
    QVERIFY(table[0] == ObjectRecord{});
}

void ObjectFileTest::keepsFileOrderAndHoldsMoreThan101() {
    QStringList lines;
    for (int i = 0; i < 150; ++i)
        lines += object(QStringLiteral("#%1").arg(3149 - i), {});
    ObjectTable table;
    QCOMPARE(readObjects(joined(lines + QStringList{"$"}, "\n"), table), 150);
    QCOMPARE(table[0].VNum, 3149);
    QCOMPARE(table[149].VNum, 3000);
    table.clear();
    QCOMPARE(table.size(), std::size_t(101));
    QVERIFY(table[0] == ObjectRecord{});
}

void ObjectFileTest::flagLetters_data() {
    QTest::addColumn<QString>("typeLine");
    QTest::addColumn<QStringList>("effects");
    QTest::addColumn<QStringList>("wear");
    QTest::newRow("19 0 a") << "19 0 a" << QStringList{} << QStringList{"Take"};
    QTest::newRow("5 gh an") << "5 gh an" << QStringList{"Magic", "NoDrop"}
                             << QStringList{"Take", "Wield"};
    QTest::newRow("last letters") << "9 qA o" << QStringList{"NoSell"} << QStringList{"Hold"};
    QTest::newRow("numbers set nothing") << "17 8 16385" << QStringList{} << QStringList{};
}

void ObjectFileTest::flagLetters() {
    QFETCH(QString, typeLine);
    QFETCH(QStringList, effects);
    QFETCH(QStringList, wear);
    ObjectTable table;
    readObjects(joined(QStringList(object()).replaceInStrings("19 0 a", typeLine), "\n"), table);
    auto captions = [](std::span<const FlagDef> flags, const std::string& text) {
        QStringList set;
        const std::vector<bool> on = flagSet(flags, text);
        for (std::size_t i = 0; i < flags.size(); ++i)
            if (on[i])
                set += QString::fromLatin1(flags[i].caption);
        return set;
    };
    QCOMPARE(captions(kEffectFlags, table[0].EBitV), effects);
    QCOMPARE(captions(kWearFlags, table[0].WBitV), wear);
}

void ObjectFileTest::writes_data() {
    QTest::addColumn<QStringList>("file");
    QTest::addColumn<QStringList>("written");

    const QStringList head = {"#1", "a~", "b~", "c~", "~", "1 0 0", "0 0 0 0", "0 0 0"};
    QTest::newRow("no blocks: the next record follows at once")
        << head + head << head + head + QStringList{};
    QTest::newRow("extra descriptions before affects, breaks before ~")
        << head + QStringList{"A", "3  +1 ", "E", "k~", "hello~", "E", "l~", "~", "$"}
        << head + QStringList{"E", "k~", "hello", "~", "E", "l~", "", "~", "A", "3 1", "$"};
    QTest::newRow("action description written as it stands")
        << QStringList{"#1", "a~", "b~", "c~", "line", "", "~", "1 0 0", "0 0 0 0", "0 0 0", "$"}
        << QStringList{"#1", "a~", "b~", "c~", "line", "", "~", "1 0 0", "0 0 0 0", "0 0 0", "$"};
    QTest::newRow("flag texts kept as read, numbers plain")
        << QStringList{"#+1",          "a~",      "b~", "c~", "~", "+5 hg 8193 extra",
                       "-0 +3 -4 0  ", "007 5 1", "$"}
        << QStringList{"#1", "a~", "b~", "c~", "~", "5 hg 8193", "0 3 -4 0", "7 5 1", "$"};
}

void ObjectFileTest::writes() {
    QFETCH(QStringList, file);
    QFETCH(QStringList, written);
    if (!written.endsWith("$"))
        written += "$";
    if (!file.endsWith("$"))
        file += "$";
    for (const char* eol : {"\r\n", "\n"}) {
        ObjectTable table;
        const int count = readObjects(joined(file, eol), table);
        const std::string text = writeObjects(table, count);
        QCOMPARE(QByteArray::fromStdString(text), QByteArray::fromStdString(joined(written, eol)));
        ObjectTable again;
        QCOMPARE(readObjects(text, again), count);
        for (int slot = 0; slot < count; ++slot)
            QCOMPARE(describe(again[slot]), describe(table[slot]));
    }
}

void ObjectFileTest::writtenFileReadsBackAndWritesTheSame() {
    ObjectTable table;
    for (int slot = 0; slot < 3; ++slot) {
        ObjectRecord& o = table[slot];
        o.VNum = 3000 + slot;
        o.Alias = "sword";
        o.SDesc = "a sword";
        o.LDesc = "A sword lies here.";
        o.ADesc = slot == 0 ? "" : "You swing it.\r\n";
        o.OType = 5;
        o.EBitV = "gh";
        o.WBitV = "an";
        o.Values = {0, 3, 4, slot};
        o.Weight = 8;
        o.Cost = -1;
        o.RPD = 800;
        if (slot > 0) {
            o.ExtraDescs[0] = {"sword", "Sharp.\r\n\r\nVery sharp."};
            o.ExtraDescs[1] = {"hilt", ""};
            o.Affects[0] = {18, "", 2};
            o.Affects[1] = {19, "", -1};
        }
    }
    // Entries after the first empty one are not written.
    table[2].ExtraDescs[3] = {"lost", "never written"};
    table[2].Affects[3] = {1, "", 1};
    const std::string text = writeObjects(table, 3);
    QVERIFY(text.ends_with("A\r\n19 -1\r\n$\r\n"));
    QVERIFY(text.find("lost") == std::string::npos);
    QVERIFY(text.find("\r\nA\r\n1 1\r\n") == std::string::npos);
    table[2].ExtraDescs[3] = {};
    table[2].Affects[3] = {};
    ObjectTable again;
    QCOMPARE(readObjects(text, again), 3);
    for (int slot = 0; slot < 3; ++slot)
        QCOMPARE(describe(again[slot]), describe(table[slot]));
    QCOMPARE(writeObjects(again, 3), text);
}

void ObjectFileTest::emptyZoneWritesAClearedObjectThatReadsBack() {
    ObjectTable table;
    const std::string text = writeObjects(table, 0);
    QCOMPARE(text, test::crlf({"#0", "~", "~", "~", "~", "0  ", "0 0 0 0", "0 0 0", "$"}));
    ObjectTable again;
    QCOMPARE(readObjects(text, again), 1);
    QVERIFY(again[0] == ObjectRecord{});
}

void ObjectFileTest::clearingKeepsWhatLivesBesideTheFile() {
    ObjectTable table;
    readObjects(joined(object("#3009", {"E", "k~", "d", "~", "A", "1 2", "A", "3 4", "$"}), "\n"),
                table);
    table[0].SavedLightDuration = 24;
    table[0].Affects[0].LocationName = "Str";
    table[0].Affects[1].LocationName = "Int";
    table[5].SavedLightDuration = -1;
    table[5].Values[2] = 7;
    table.clear();

    ObjectRecord expected;
    expected.SavedLightDuration = 24;
    expected.Affects[0].LocationName = "Str";
    expected.Affects[1].LocationName = "Int";
    QVERIFY(table[0] == expected);
    QCOMPARE(table[5].SavedLightDuration, -1);
    QCOMPARE(table[5].Values[2], 0);
    QVERIFY(table.lineEnd == LineEnd::CrLf);

    // The table of the run, through its own clearing.
    objectTable()[0].VNum = 3001;
    objectTable()[0].SavedLightDuration = 12;
    ClearObjectTable();
    QCOMPARE(objectTable()[0].VNum, 0);
    QCOMPARE(objectTable()[0].SavedLightDuration, 12);
}

void ObjectFileTest::listsReadAsTheirFixedSlots() {
    ObjectRecord o;
    const ObjectRecord& read = o;
    QCOMPARE(read.ExtraDescs.size(), std::size_t(128));
    QVERIFY(read.ExtraDescs[127] == ExtraDesc{});
    o.ExtraDescs[2].Keywords = "third";
    int seen = 0;
    for (const ExtraDesc& extra : read.ExtraDescs)
        seen += extra.Keywords.empty() ? 1 : 100;
    QCOMPARE(seen, 127 + 100);
    QVERIFY_THROWS_EXCEPTION(std::out_of_range, o.ExtraDescs[128]);

    // Equal by what the slots hold, however many are stored.
    ObjectRecord other;
    other.ExtraDescs[2].Keywords = "third";
    other.Affects[9] = {};
    QVERIFY(o == other);
    other.Affects[9].Modifier = 1;
    QVERIFY(!(o == other));

    // The whole list as one array, as the extra-descriptions dialog edits it.
    std::span<ExtraDesc> all(o.ExtraDescs);
    QCOMPARE(all.size(), std::size_t(128));
    all[127].Desc = "last";
    QCOMPARE(read.ExtraDescs[127].Desc, std::string("last"));
    QCOMPARE(read.ExtraDescs[2].Keywords, std::string("third"));
}

QTEST_GUILESS_MAIN(ObjectFileTest)
#include "object_file_test.moc"
