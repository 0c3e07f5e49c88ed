// The three kinds' readers and writers on small files, each tried in CR LF
// and in LF: what a record reads as, where and why a file is refused, and
// what is written back (see ../world/zone_files.h).

#include "test_main.h"

#include "../world/zone_files.h"

using namespace marl;
using namespace marl::test;

class ZoneFormatsTest : public QObject {
    Q_OBJECT
private slots:
    void reads_data();
    void reads();
    void refuses_data();
    void refuses();
    void writes_data();
    void writes();
};

// Runs a check with the kind of the row's first column.
#define BY_KIND(check)                                                                             \
    do {                                                                                           \
        QFETCH(QString, kind);                                                                     \
        if (kind == ".wld")                                                                        \
            check<Rooms>();                                                                        \
        else if (kind == ".mob")                                                                   \
            check<Mobiles>();                                                                      \
        else if (kind == ".shp")                                                                   \
            check<Shops>();                                                                        \
        else                                                                                       \
            check<Objects>();                                                                      \
    } while (false)

void ZoneFormatsTest::reads() { BY_KIND(checkReads); }
void ZoneFormatsTest::refuses() { BY_KIND(checkRefuses); }
void ZoneFormatsTest::writes() { BY_KIND(checkWrites); }

namespace {

const QString R = "#1|R~|~|30 0 0|";                 // a room up to its exits
const QString M = "#1|a~|b~|~|~|0 0 0 S|1 2 3 1d1+1 1d1+1|0 0|8 8 0"; // a whole mobile
const QString MS = "#1 [a] [b] [] [] [0] [0] 0 [S] 1 2 3 [1d1+1] [1d1+1] 0 0 8 8 0";
const QString O = "#1|a~|b~|c~|~|1 0 0|0 0 0 0|0 0 0|"; // an object up to its blocks
const QString OS = "#1 [a] [b] [c] [] 1 [0] [0] 0 0 0 0 0 0 0";
// A shop's messages, its four numbers after them, its hours; the current form's mark.
const QString SM = "a~|b~|c~|d~|e~|%s f %d~|%s g %d~|", SN = "0|2|3000|4|", SH = "0|28|0|0|";
const QString SV = "CircleMUD v3.0 Shop File~|";
const QString SS = "[a] [b] [c] [d] [e] [%s f %d] [%s g %d] R 3001 H0 28 0 0";

void row(const char* kind, const char* name, const QString& file, const QVariant& second,
         const QString& third = {}) {
    auto& out = QTest::newRow(qPrintable(QString(kind) + ": " + name)) << QString(kind) << file;
    if (second.typeId() == QMetaType::Int)
        out << second.toInt() << third;
    else
        out << second.toString();
}

} // namespace

void ZoneFormatsTest::reads_data() {
    QTest::addColumn<QString>("kind");
    readColumns();
    // clang-format off
    row(".wld", "D1 is east, D2 south", R + "D1|e|~|~|0 -1 2|D2|s|~|gate~|2 7 3|S|$", 1,
        "#1 [R] [] [0] 0 South=1 [s] [gate] 2 7 3 East=2 [e] [] 0 -1 2");
    row(".mob", "every keyword to its own field",
        M + "|Cha: 8|Con: 7|Dex: 6|Wis: 5|Int: 4|StrAdd: 3|Str: 9|BareHandAttack: 1|E|$", 1,
        MS + " BareHandAttack:1 Str:9 StrAdd:3 Int:4 Wis:5 Dex:6 Con:7 Cha:8");
    row(".mob", "dice as text, + signs, positions and gender beyond the options",
        "#1|a~|b~|~|~|c k +200 S |6  14 +4   7d1+0 1d6+-2 |40   1500 | 7 3  5|$", 1,
        "#1 [a] [b] [] [] [c] [k] 200 [S] 6 14 4 [7d1+0] [1d6+-2] 40 1500 7 3 5");
    row(".obj", "extra descriptions and affects in any order, location 0 kept",
        O + "A|3 1|E|k~|d|~|A|0 -1|E|~|x|~|$", 1, OS + " E[k] [d] E[] [x] A3 1 A0 -1");
    row(".shp", "type names in any case, keywords after a name, a number, a -1", SV +
        "#1~|3050|3051|-1|1.1|0.9|weapons sharp|liq container|5  long sword ; a|+9|-1 blue|" + SM + SN + "3001|-1|" + SH + "$~",
        1, "#1 [1.1] [0.9] 0 2 3000 4 P 3050 3051 T5 [s sharp] T17 [] T5 [long sword] T9 [blue] " + SS);
    row(".shp", "the older form: five products, five types, one room, -1 for none",
        "#1~|3050|-1|3051|-1|-2|1.1|0.9|5|-1|9|-1|0|" + SM + SN + "3001|" + SH + "$~",
        1, "#1 [1.1] [0.9] 0 2 3000 4 P 3050 3051 -2 T5 [] T9 [] T0 [] " + SS);
    row(".shp", "texts read over before a shop, lines passed over in lists, messages over lines",
        SV + "the baker|* of Midgaard~|#1~|* sells|3050||-1| 1.1x|0.9|-1|a|b~|" + SM.mid(3) + SN + "3001|-1|" + SH + "$~",
        1, "#1 [ 1.1x] [0.9] 0 2 3000 4 P 3050 [a/b] " + SS.mid(4));
    // clang-format on
}

void ZoneFormatsTest::refuses_data() {
    QTest::addColumn<QString>("kind");
    refusalColumns();
    // clang-format off
    row(".wld", "D7", R + "D7|~|~|0 -1 2|S|$", 5, "an exit direction \"D0\" to \"D5\"");
    row(".mob", "extended block without its E", M + "|Str: 18|$", 12, "the end of the block \"E\"");
    const QString shop = "#1~|-1|1.1|0.9|-1|" + SM + SN + "-1|" + SH;
    const QString end = "a shop \"#<number>~\" or the end of the file \"$~\"";
    row(".shp", "an empty file", "", 1, end);
    row(".shp", "$ without its ~", SV + shop + "$", 23, end);
    row(".shp", "~ alone between shops", SV + shop + "~|" + shop + "$~", 23, "it crashes there");
    row(".shp", "a blank line before a shop", SV + shop + "|" + shop + "$~", 24, "not read as a shop");
    row(".shp", "the header's ~ far below", SV + QString(shop).replace("#1~", "#1"), 2, "has no \"~\" at the end of its line");
    row(".shp", "a factor that is not a number", SV + QString(shop).replace("1.1", "abc"), 4, "the buying price factor");
    row(".shp", "a buy type neither named nor numbered", SV + QString(shop).replace("0.9|-1", "0.9|SWORD|-1"), 6, "an item type");
    row(".shp", "keywords after the -1, no type before", SV + QString(shop).replace("0.9|-1", "0.9|-1 sword"), 6, "no buy type before it");
    row(".shp", "a number line longer than the server reads", SV + QString(shop).replace("#1~|-1", "#1~|-1" + QString(253, ' ')), 3, "longer than the 255");
    row(".shp", "a * line longer than the server reads", SV + QString(shop).replace("#1~", "#1~|*" + QString(300, 'x')), 3, "longer than the 255");
    // clang-format on
}

void ZoneFormatsTest::writes_data() {
    QTest::addColumn<QString>("kind");
    writeColumns();
    // clang-format off
    row(".wld", "exits in the order of their direction numbers",
        R + "D5|d|~|~|0 -1 -1|D1|e|~|door~|1 3005 3|D0|~|~|0 -1 1|S|$",
        R + "D0|~|~|0 -1 1|D1|e|~|door~|1 3005 3|D5|d|~|~|0 -1 -1|S|$");
    row(".wld", "what the reader drops is not written, empty texts as ~ alone",
        "#1 |R~ junk|Desc~|77 0 +1 extra|D1 |~ junk|k~ junk|1  -1   +2|E |k~||~|S junk|$~",
        "#1|R~|Desc|~|30 0 1|D1|~|k~|1 -1 2|E|k~|~|S|$~");
    row(".mob", "extended lines as the builder wrote them, unknown and zero ones too",
        M + "|StrAdd: 50|BareHandAttack: 0|Attack: 3|Str: 18|E|$", "=");
    row(".mob", "an E letter without values: an empty block",
        QString(M).replace(" S|", " E|") + "|$", QString(M).replace(" S|", " E|") + "|E|$");
    row(".mob", "negative numbers, gold and experience apart",
        "#1|a~|~|~|one||three|~|0 0 -350 S|1 -2 -3 1d1+1 1d1+1|5 -7|8 8 0|$", "=");
    row(".obj", "extra descriptions before affects, a line break before each ~",
        O + "A|3  +1 |E|k~|hello~|A|0 5|E|l~||~|$", O + "E|k~|hello|~|E|l~|~|A|3 1|A|0 5|$");
    row(".obj", "flag texts as read, numbers plain",
        "#+1|a~|b~|c~|~|+5 hg 8193 extra|-0 +3 -4 0  |007 5 1|$",
        "#1|a~|b~|c~|~|5 hg 8193|0 3 -4 0|7 5 1|$");
    row(".shp", "a table never read: a new file of the current form", "", SV + "$~");
    row(".shp", "types by name, a -1's words to their type, numbers plain, a factor as it stands",
        SV + "#1 the baker~|+3050|-1| 1.10 x|0.9|weapons sharp|5 ; a|30 x|-1 blue|" + SM + SN + "-1|" + SH + "$~",
        SV + "#1~|3050|-1| 1.10 x|0.9|WEAPON s sharp|WEAPON|30 blue|-1|" + SM + SN + "-1|" + SH + "$~");
    row(".shp", "the older form's lists filled with -1",
        "#1~|-1|3050|-1|-1|-1|1|1|-1|-1|5|-1|-1|" + SM + SN + "3001|" + SH + "$~",
        "#1~|3050|-1|-1|-1|-1|1|1|5|-1|-1|-1|-1|" + SM + SN + "3001|" + SH + "$~");
    row(".shp", "each shop in the form the server reads it in at its place",
        "#1~|-1|-1|-1|-1|-1|1|1|-1|-1|-1|-1|-1|" + SM + SN + "-1|" + SH + SV + "#2~|-1|1|1|-1|" + SM + SN + "-1|" + SH + "$~", "=");
    // clang-format on
}

MARL_TEST_MAIN(ZoneFormatsTest)
#include "zone_formats_test.moc"
