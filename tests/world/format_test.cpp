// The format's rules, each over every kind: stock files, every byte of a
// text, flag text, numbers, dice, zone names and record headers.

#include "test_main.h"

#include "zone_files.h"

#include <QRegularExpression>

#include "dialogs/attack_types.h"
#include "objects/object_values.h"
#include "world/dice.h"
#include "world/numeric_rule.h"
#include "world/vocabulary.h"

using namespace marl;
using test::columns;

namespace {

// One small record of each kind: its fields after the header, `@` for each
// text, and how many lines it takes with the header.
struct KindFile {
    const char* body;
    int lines;
};
template <typename Record> constexpr KindFile kFile{};
template <> constexpr KindFile kFile<RoomRecord>{"|@~|@|~|30 ad 1|D0|@|~|@~|1 -1 3002|E|@~|@|~|S", 15};
template <> constexpr KindFile kFile<MobileRecord>{
    "|@~|@~|@|~|@|~|ab 0 350 E|10 9 4 2d8+100 1d8+4|500 9000|8 8 1|E", 12}; // E without values
template <> constexpr KindFile kFile<ObjectRecord>{"|@~|@~|@~|@~|19 0 a|24 0 0 0|1 50 50|E|@~|@|~|A|1 2", 14};

// The body of a kind's record with each text `a` + text, `b` + text, ...
template <typename Kind> QString body(const QString& text) {
    QString out = kFile<typename Kind::Record>.body;
    for (char tag = 'a'; out.contains('@'); ++tag)
        out.replace(out.indexOf('@'), 1, tag + text);
    return out;
}

// What reading `file` gives: the vnum of `record`, or the refusal's line and problem.
template <typename Kind> QString readHeader(const std::string& file, int record = 0) {
    auto table = std::make_unique<typename Kind::File>();
    try {
        Kind::read(file, *table);
        return QString::number((*table)[std::size_t(record)].VNum);
    } catch (const FormatError& error) {
        return QStringLiteral("%1: %2").arg(error.line()).arg(QString::fromStdString(error.problem()));
    }
}

} // namespace

class FormatTest : public QObject {
    Q_OBJECT
private slots:
    // The tables the server keeps itself, as its sources have them: a row of
    // its table there (the first rows of that form in the file) and ours.
    void asTheServerHasThem_data() {
        columns<QString, QString, QStringList>({"file", "row", "ours"});
        QStringList verbs, drinks;
        for (const AttackTypeDef& type : kAttackTypes)
            verbs << QString::fromLatin1(type.caption);
        for (const LiquidDef& liquid : kLiquids) // drunkenness, hunger, thirst
            drinks << QStringLiteral("%1/%2/%3").arg(liquid.drunk).arg(liquid.fill).arg(liquid.thirst);
        QStringList types;
        for (std::string_view name : kShopItemTypes)
            types << QString::fromLatin1(name.data(), qsizetype(name.size()));
        QTest::newRow("attack verbs") << "fight.c" << R"re(\{"(\w+)", "(\w+)"\})re" << verbs;
        QTest::newRow("item types in shop files") << "constants.c"
            << R"re(  "([A-Z ]+)",\n(?=(?:  "[A-Z ]+",\n)*  "\\n"\n\};\s*/\* ITEM_WEAR_))re" << types;
        QTest::newRow("effects of drinks") << "constants.c" << R"(\{(-?\d+), (-?\d+), (-?\d+)\})" << drinks;
    }
    void asTheServerHasThem() {
        QFETCH(QString, file);
        QFETCH(QString, row);
        QFETCH(QStringList, ours);
        QFile source(QStringLiteral(MARL_CORPUS_DIR "/../server/circle/src/") + file);
        if (!source.open(QIODevice::ReadOnly))
            QSKIP("the server's sources are not beside the project");
        QStringList theirs;
        for (const QRegularExpressionMatch& match :
             QRegularExpression(row).globalMatch(QString::fromLatin1(source.readAll())))
            theirs << match.capturedTexts().mid(1).join('/');
        QCOMPARE(theirs.mid(0, ours.size()), ours);
    }
    void stockFiles_data() {
        QTest::addColumn<QString>("path");
        for (const char* extension : {".wld", ".mob", ".obj", ".shp"})
            for (const QString& path : test::corpusFiles(extension))
                QTest::newRow(qPrintable(QFileInfo(path).fileName())) << path;
    }

    // A stock file reads the records its `#` lines count and is written back;
    // stored, in its line ends and in CR LF, it round trips; one record stored
    // changes the file in that record's bytes alone.
    void stockFiles() {
        QFETCH(QString, path); // no rows without ../shared/corpus
        const std::string bytes = test::readBytes(path);
        const QString name = QFileInfo(path).fileName();
        const std::int32_t zone = zoneFromFileName(name.toStdString()).value_or(0);
        static const QRegularExpression header("^#[0-9]+~?[ \\t]*\\r?$", QRegularExpression::MultilineOption);
        test::byExtension(name, [&]<typename Kind>() {
            auto table = std::make_unique<typename Kind::File>();
            const int count = Kind::read(bytes, *table);
            QCOMPARE(count, int(QString::fromLatin1(bytes).count(header)));
            QVERIFY2(Kind::write(*table, count, zone) == bytes, "not written back byte for byte");
            const std::string crlf = QByteArray::fromStdString(bytes).replace("\r\n", "\n").replace("\n", "\r\n").toStdString();
            for (const std::string& file : {bytes, crlf}) {
                const std::string written = test::storedRoundTrip<Kind>(file, zone);
                QCOMPARE(written.find("\r\n") != std::string::npos, file.find("\r\n") != std::string::npos);
            }
            for (std::size_t slot = 0, start = 0; slot < std::size_t(count); ++slot) {
                typename Kind::Record& record = (*table)[slot];
                const typename Kind::Record before = record;
                record.Source.clear();
                const std::string written = Kind::write(*table, count, zone);
                const std::size_t after = bytes.size() - start - before.Source.size();
                QVERIFY2(written.compare(0, start, bytes, 0, start) == 0 && written.size() >= after &&
                             written.compare(written.size() - after, after, bytes, bytes.size() - after) == 0,
                         qPrintable(QString("slot %1").arg(slot)));
                auto again = std::make_unique<typename Kind::File>();
                QCOMPARE(Kind::read(written, *again), count);
                QVERIFY(test::sameFields((*again)[slot], before));
                record = before;
                start += before.Source.size();
            }
        });
    }

    // Every text of a record of each kind holding CRs that are not part of a
    // line end (`|` is a line break) is written field by field as read, three
    // times over, in LF and in CR LF files.
    void crRunsSurvive() {
        for (const char* text : {"a\r\r\rb", "ab\r|cd", "ab\r\r|\r|\r\r|cd", "\r", "ab\r", "a\r||b"})
            forEachZoneKind([&]<typename Kind>() {
                for (const char* eol : {"\r\n", "\n"}) {
                    const std::string bytes = test::lines("#3001" + body<Kind>(text) + "|$", eol);
                    auto table = std::make_unique<typename Kind::File>();
                    QCOMPARE(Kind::read(bytes, *table), 1);
                    const typename Kind::Record first = (*table)[0];
                    for (int cycle = 1; cycle <= 3; ++cycle) {
                        test::storeAll(*table, 1);
                        const std::string written = Kind::write(*table, 1, 30);
                        QVERIFY2(written == bytes, qPrintable(QString("%1 %2, %3").arg(Kind::info.many.data(), QString(text).toLatin1().toPercentEncoding(), eol)));
                        table = std::make_unique<typename Kind::File>();
                        QCOMPARE(Kind::read(written, *table), 1);
                        QVERIFY(test::sameFields((*table)[0], first));
                    }
                }
            });
    }

    // Flag text as read (the bits) and as written again with the room flags:
    // digits are the server's bit mask (bit k is letter k), capitals up to F
    // bits 26 to 31, later ones name nothing; letters without a box come after
    // the table's.
    void flags() {
        const std::tuple<const char*, qint64, const char*> rows[] = {{"kda", 0x409, "adk"}, {"0", 0, "0"},
            {"", 0, "0"}, {"0010", 10, "bd"}, {"2048", 2048, "l"}, {"4294967297", 1, "a"}, {"a12", 1, "a"}, {"-1", 0, "0"},
            {"4294967295", 0xffffffff, "abcdefghijklmnopqrstuvwxyzABCDEF"}, {"GZAkz", 0x6000400, "kzA"}};
        for (const auto& [text, bits, written] : rows) {
            QCOMPARE(qint64(flagBits(text)), bits);
            QCOMPARE(flagText(kRoomFlags, FlagBits(bits)), std::string(written));
        }
    }

    void numbers() {
        // A typed number held to its range: text, least, most, result.
        const std::tuple<QString, qint64, qint64, QString> rows[] = {
            {"42", -1, 99999, "42"}, {"-5", -1, 99999, "-1"}, {"123456", -1, 99999, "99999"},
            {"", 1, 30, ""}, {"-", 1, 30, "-"}, {"1-2", -1, 9, "1-2"},
            {"99999999999", INT32_MIN, INT32_MAX, "2147483647"},
            {"-" + QString(30, '9'), -1000, 1000, "-1000"}};
        for (const auto& [text, min, max, result] : rows)
            QCOMPARE(QString::fromStdString(applyRange(text.toStdString(), min, max)), result);
        // Digits pass, `-` only where negatives are allowed, nothing else.
        for (const char key : std::string_view("07-a+. "))
            for (const bool minus : {false, true})
                QCOMPARE(numericKeyAllowed(key, minus), (key >= '0' && key <= '9') || (minus && key == '-'));
    }

    void dice() {
        // A dice text, its parts split and joined again.
        const std::pair<const char*, const char*> rows[] = {
            {"2d8+100", "2 8 100 2d8+100"}, {"1d6+-2", "1 6 -2 1d6+-2"}, {"2d8", "2 8  2d8+"},
            {"5+3", "5  3 5d+3"}, {"1d2d3+4", "1 2 4 1d2+4"}, {"1d6+2+3", "1 6 2 1d6+2"}};
        for (const auto& [text, split] : rows) {
            const DiceParts parts = splitDice(text);
            QCOMPARE(QString::fromStdString(parts.count + ' ' + parts.size + ' ' + parts.bonus + ' ' + joinDice(parts)),
                     QString(split));
        }
    }

    void zoneFromName() {
        const std::pair<const char*, int> rows[] = {{"30.wld", 30}, {"030.wld", 30}, {"7.old.wld", 7},
            {"castle.wld", -1}, {"30abc.wld", -1}, {".wld", -1}, {"+30.wld", -1}, {"99999999999.wld", -1}};
        for (const auto& [name, zone] : rows) {
            const auto got = zoneFromFileName(name);
            QCOMPARE(got.value_or(-1), zone);
            if (got)
                QCOMPARE(zoneFileName(*got, ".wld"), std::to_string(zone) + ".wld");
        }
    }

    void headers_data() {
        // A header line and what it reads as, in every kind and as the first
        // record or the second: the vnum, or the line and why the server would
        // not boot the file ("expected " at the end: the start of the refusal).
        columns<QString, QString>({"header", "read"});
        for (const auto& [header, read] : {std::pair{"#3001", "3001"}, {"#+3001", "3001"}, {"#30#01", "30"},
                 {"#99998", "99998"}, {"#-5", "1: -5: a vnum cannot be negative"},
                 {"#+-3099", "1: +-3099: two signs before a vnum"}, {"#2147483648", "1: 2147483648: too large for a vnum"},
                 {"#abc", "1: expected "}, {"3001", "1: expected "},
                 {"#1\r", "1: the line ends are not understood: lines end in CR alone"}})
            QTest::newRow(header) << QString(header) << QString(read);
    }

    void headers() {
        QFETCH(QString, header);
        QFETCH(QString, read);
        const bool crOnly = header.endsWith('\r');
        forEachZoneKind([&]<typename Kind>() {
            const QString record = body<Kind>("x");
            const int lines = kFile<typename Kind::Record>.lines;
            for (const int first : {0, 1}) {
                QString expected = read;
                if (const qsizetype colon = read.indexOf(':'); first && colon > 0)
                    expected = QString::number(read.left(colon).toInt() + lines) + read.mid(colon);
                const QString file = (first ? "#7" + record + '|' : QString()) + header.chopped(crOnly) + record + "|$";
                for (const char* eol : {"\r\n", "\n", "\r"}) {
                    if ((eol == std::string_view("\r")) != crOnly)
                        continue;
                    const QString got = readHeader<Kind>(test::lines(file, eol), first);
                    QVERIFY2(expected.endsWith(' ') || crOnly ? got.startsWith(expected) : got == expected,
                             qPrintable(QString(Kind::info.name.data()) + ": " + got));
                }
                if (crOnly)
                    break; // told at line 1 whatever follows
            }
        });
        // One CR alone inside a file of LF line ends is text, not a line end.
        if (crOnly)
            QCOMPARE(readHeader<test::Rooms>(test::lines("#1|R\rx~|~|30 0 0|S|$", "\n")), "1");
    }
};

MARL_TEST_MAIN(FormatTest)
#include "format_test.moc"
