#include "test_main.h"

#include "zone_files.h"

#include "world/numeric_rule.h"
#include "world/text_writer.h"
#include "world/vocabulary.h"

using namespace marl;
using test::columns;

class TextRulesTest : public QObject {
    Q_OBJECT
private slots:
    void multiLineText_data();
    void multiLineText();
    void flags_data();
    void flags();
    void zoneFromName_data();
    void zoneFromName();
    void range_data();
    void range();
    void keys();
    void endLine();
    void headers_data();
    void headers();
    void crOnlyLineEnds();
};

void TextRulesTest::multiLineText_data() {
    columns<QByteArray, QByteArray>({"file", "value"});
    // clang-format off
    QTest::newRow("~ alone") << QByteArray("~\r\nnext") << QByteArray("");
    QTest::newRow("empty line then ~") << QByteArray("\r\n~\r\nnext") << QByteArray("");
    QTest::newRow("CR LF before ~ dropped") << QByteArray("one\r\ntwo\r\n~\r\nnext") << QByteArray("one\r\ntwo");
    QTest::newRow("LF held as CR LF") << QByteArray("one\ntwo\n~\nnext") << QByteArray("one\r\ntwo");
    QTest::newRow("~ after text keeps all") << QByteArray("A cityguard~\nnext") << QByteArray("A cityguard");
    QTest::newRow("one character then ~") << QByteArray("x~\nnext") << QByteArray("x");
    QTest::newRow("blank line kept") << QByteArray("a\n\n~\nnext") << QByteArray("a\r\n");
    QTest::newRow("rest of the ~ line dropped") << QByteArray("a\r\n~ junk\r\nnext") << QByteArray("a");
    QTest::newRow("latin-1 bytes") << QByteArray("caf\xe9\r\n\xff~\r\nnext") << QByteArray("caf\xe9\r\n\xff");
    // clang-format on
}

void TextRulesTest::multiLineText() {
    QFETCH(QByteArray, file);
    QFETCH(QByteArray, value);
    TextReader in(std::string_view(file.constData(), std::size_t(file.size())));
    QCOMPARE(QByteArray::fromStdString(in.readTildeText("text")), value);
    QCOMPARE(std::string(in.readLine("next")), std::string("next"));
    // Written in the file's line ends and read again, the value is the same.
    TextWriter out(in.lineEnd());
    TextReader again(out.tildeText(value.toStdString()).text());
    QCOMPARE(QByteArray::fromStdString(again.readTildeText("text")), value);
}

void TextRulesTest::flags_data() {
    // The flags a text sets, by caption, and the text they are written as.
    columns<QString, QString, QString, QString>({"table", "text", "set", "written"});
    // clang-format off
    QTest::newRow("adk") << "room" << "adk" << "Dark Indoors GodRoom" << "adk";
    QTest::newRow("table order") << "room" << "kda" << "Dark Indoors GodRoom" << "adk";
    QTest::newRow("0") << "room" << "0" << "" << "0";
    QTest::newRow("empty") << "room" << "" << "" << "0";
    // Digits are the server's bit mask: bit k is letter k.
    QTest::newRow("digits 1") << "room" << "1" << "Dark" << "a";
    QTest::newRow("digits 10: b and d") << "room" << "10" << "Death Indoors" << "bd";
    QTest::newRow("digits 12") << "room" << "12" << "NoMob Indoors" << "cd";
    QTest::newRow("leading zeros") << "room" << "0010" << "Death Indoors" << "bd";
    QTest::newRow("digits beyond the table") << "room" << "2048" << "" << "l";
    QTest::newRow("largest mask") << "room" << "4294967295"
        << "Dark Death NoMob Indoors Peaceful SoundProof NoTrack NoMagic Tunnel Private GodRoom"
        << "abcdefghijklmnopqrstuvwxyzABCDEF";
    QTest::newRow("beyond 32 bits keeps the low bits") << "room" << "4294967297" << "Dark" << "a";
    // Letters with digits: the letters count, the digits do not.
    QTest::newRow("mixed") << "room" << "a12" << "Dark" << "a";
    QTest::newRow("minus is not a mask") << "room" << "-1" << "" << "0";
    // Letters without a box are kept after the table's letters; capitals up
    // to F are bits 26 to 31, later capitals name nothing.
    QTest::newRow("letters without a box") << "room" << "zkAa" << "Dark GodRoom" << "akzA";
    QTest::newRow("capitals beyond F") << "room" << "GZk" << "GodRoom" << "k";
    QTest::newRow("effect gh") << "effect" << "hg" << "Magic NoDrop" << "gh";
    QTest::newRow("effect o q") << "effect" << "qo" << "AntiThief NoSell" << "oq";
    QTest::newRow("wear an") << "wear" << "an" << "Take Wield" << "an";
    QTest::newRow("wear o") << "wear" << "o" << "Hold" << "o";
    QTest::newRow("wear as digits 8193") << "wear" << "8193" << "Take Wield" << "an";
    // clang-format on
}

void TextRulesTest::flags() {
    QFETCH(QString, table);
    QFETCH(QString, text);
    QFETCH(QString, set);
    QFETCH(QString, written);
    const std::span<const FlagDef> flags = table == "room" ? std::span<const FlagDef>(kRoomFlags)
                                           : table == "effect"
                                               ? std::span<const FlagDef>(kEffectFlags)
                                               : std::span<const FlagDef>(kWearFlags);
    const std::vector<bool> on = flagSet(flags, text.toStdString());
    QStringList captions;
    for (std::size_t i = 0; i < flags.size(); ++i)
        if (on[i])
            captions += QString::fromLatin1(flags[i].caption);
    QCOMPARE(captions.join(' '), set);
    QCOMPARE(QString::fromStdString(flagText(flags, flagBits(text.toStdString()))), written);
}

void TextRulesTest::zoneFromName_data() {
    columns<QString, int>({"name", "zone"}); // zone -1: refused
    for (const auto& [name, zone] : {std::pair{"30.wld", 30},
                                     {"030.wld", 30},
                                     {"7.old.wld", 7},
                                     {"castle.wld", -1},
                                     {"30abc.wld", -1},
                                     {".wld", -1},
                                     {"99999999999.wld", -1}})
        QTest::newRow(name) << QString(name) << zone;
}

void TextRulesTest::zoneFromName() {
    QFETCH(QString, name);
    QFETCH(int, zone);
    const auto got = zoneFromFileName(name.toStdString());
    QCOMPARE(got.value_or(-1), zone);
    if (got)
        QCOMPARE(zoneFileName(*got, ".wld"), std::to_string(zone) + ".wld");
}

void TextRulesTest::range_data() {
    columns<QString, qint64, qint64, QString>({"text", "min", "max", "result"});
    // clang-format off
    QTest::newRow("in range") << "42" << qint64(-1) << qint64(99999) << "42";
    QTest::newRow("below") << "-5" << qint64(-1) << qint64(99999) << "-1";
    QTest::newRow("above") << "123456" << qint64(-1) << qint64(99999) << "99999";
    QTest::newRow("empty left alone") << "" << qint64(1) << qint64(30) << "";
    QTest::newRow("lone minus left alone") << "-" << qint64(1) << qint64(30) << "-";
    QTest::newRow("minus after a digit left alone") << "1-2" << qint64(-1) << qint64(9) << "1-2";
    QTest::newRow("eleven digits") << "99999999999" << qint64(INT32_MIN) << qint64(INT32_MAX) << "2147483647";
    QTest::newRow("forty digits") << QString(40, '9') << qint64(0) << qint64(INT32_MAX) << "2147483647";
    QTest::newRow("long negative") << "-" + QString(30, '9') << qint64(-1000) << qint64(1000) << "-1000";
    // clang-format on
}

void TextRulesTest::range() {
    QFETCH(QString, text);
    QFETCH(qint64, min);
    QFETCH(qint64, max);
    QFETCH(QString, result);
    QCOMPARE(QString::fromStdString(applyRange(text.toStdString(), min, max)), result);
}

void TextRulesTest::keys() {
    // Digits pass, `-` only where negatives are allowed, nothing else.
    for (const char key : std::string_view("07-a+. \t")) {
        const bool digit = key >= '0' && key <= '9';
        QCOMPARE(numericKeyAllowed(key, true), digit || key == '-');
        QCOMPARE(numericKeyAllowed(key, false), digit);
    }
}

void TextRulesTest::endLine() {
    for (const char* line : {"$", "$~"})
        QVERIFY2(isEndLine(line), line);
    for (const char* line : {"#3001", "#$", " $"}) // the server looks at the first character
        QVERIFY2(!isEndLine(line), line);
}

namespace {

// One small record of each kind after its header line, and how many lines
// it takes with the header.
struct KindFile {
    const char* body;
    int lines;
};
constexpr KindFile kRoomFile{"|R~|~|30 0 0|S", 5};
constexpr KindFile kMobileFile{"|a~|b~|~|~|0 0 0 S|1 2 3 1d1+1 1d1+1|0 0|8 8 0", 9};
constexpr KindFile kObjectFile{"|a~|b~|c~|~|1 0 a|0 0 0 0|0 0 0", 8};

// What reading `file` gives: the first record's vnum, or the line and the
// problem of the refusal.
template <typename Kind> QString readHeader(const std::string& file, int record) {
    auto table = std::make_unique<typename Kind::Table>();
    try {
        Kind::read(file, *table);
        return QString::number((*table)[std::size_t(record)].VNum);
    } catch (const FormatError& error) {
        return QStringLiteral("%1: %2")
            .arg(error.line())
            .arg(QString::fromStdString(error.problem()));
    }
}

// `read` ending in "expected ": what was expected differs by kind, only the
// beginning is compared.
void compareRead(const QString& got, const QString& read) {
    if (read.endsWith(QStringLiteral("expected ")))
        QVERIFY2(got.startsWith(read), qPrintable(got));
    else
        QCOMPARE(got, read);
}

template <typename Kind>
void checkHeader(const KindFile& kind, const QString& header, const QString& read) {
    const QString body = QString::fromLatin1(kind.body);
    for (const char* eol : {"\r\n", "\n"}) {
        // The header as the first record's, and as the second's.
        compareRead(readHeader<Kind>(test::lines(header + body + "|$", eol), 0), read);
        if (QTest::currentTestFailed())
            return;
        QString later = read;
        if (const qsizetype colon = read.indexOf(':'); colon > 0)
            later = QString::number(read.left(colon).toInt() + kind.lines) + read.mid(colon);
        compareRead(readHeader<Kind>(test::lines("#7" + body + '|' + header + body + "|$", eol), 1),
                    later);
    }
}

} // namespace

void TextRulesTest::headers_data() {
    // A header line and what it reads as, in every kind: the vnum, or the
    // line and why the server would not boot the file.
    columns<QString, QString>({"header", "read"});
    // clang-format off
    QTest::newRow("plain") << "#3001" << "3001";
    QTest::newRow("a plus sign") << "#+3001" << "3001";
    QTest::newRow("blanks before and after") << "# \t3001 " << "3001";
    QTest::newRow("text after the digits") << "#3001 old" << "3001";
    QTest::newRow("up to a second #") << "#30#01" << "30";
    QTest::newRow("leading zeros") << "#0003001" << "3001";
    QTest::newRow("minus zero") << "#-0" << "0";
    QTest::newRow("the largest vnum the server reads") << "#99998" << "99998";
    QTest::newRow("99999 and more end the reading: no record") << "#2147483647" << "0";
    QTest::newRow("negative") << "#-5" << "1: -5: a vnum cannot be negative";
    QTest::newRow("negative and large") << "#-99999999999" << "1: -99999999999: too large for a vnum";
    QTest::newRow("a sign pair") << "#+-3099" << "1: +-3099: two signs before a vnum";
    QTest::newRow("two minus signs") << "#--3099 x" << "1: --3099: two signs before a vnum";
    QTest::newRow("one beyond the largest") << "#2147483648" << "1: 2147483648: too large for a vnum";
    QTest::newRow("many digits") << "#" + QString(40, '9') << "1: " + QString(40, '9') + ": too large for a vnum";
    QTest::newRow("no digits") << "#abc" << "1: expected ";
    QTest::newRow("a sign alone") << "#-" << "1: expected ";
    QTest::newRow("no #") << "3001" << "1: expected ";
    // clang-format on
}

void TextRulesTest::headers() {
    QFETCH(QString, header);
    QFETCH(QString, read);
    checkHeader<test::Rooms>(kRoomFile, header, read);
    checkHeader<test::Mobiles>(kMobileFile, header, read);
    checkHeader<test::Objects>(kObjectFile, header, read);
}

void TextRulesTest::crOnlyLineEnds() {
    // Lines ended by CR alone: told at line 1 that the line ends are not
    // understood, in every kind.
    const QString problem =
        QStringLiteral("1: the line ends are not understood: lines end in CR alone");
    auto file = [](const KindFile& kind) {
        return test::lines("#1" + QString(kind.body) + "|$", "\r");
    };
    QVERIFY(readHeader<test::Rooms>(file(kRoomFile), 0).startsWith(problem));
    QVERIFY(readHeader<test::Mobiles>(file(kMobileFile), 0).startsWith(problem));
    QVERIFY(readHeader<test::Objects>(file(kObjectFile), 0).startsWith(problem));
    // One CR alone inside a file of LF line ends is text, not a line end.
    QCOMPARE(readHeader<test::Rooms>(test::lines("#1|R\rx~|~|30 0 0|S|$", "\n"), 0), "1");
}

MARL_TEST_MAIN(TextRulesTest)
#include "text_rules_test.moc"
