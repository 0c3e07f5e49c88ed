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
    QCOMPARE(in.readLine("next"), std::string("next"));
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
    for (const char* line : {"$", "$~", "#$"})
        QVERIFY2(isEndLine(line), line);
    QVERIFY(!isEndLine("#3001"));
}

QTEST_GUILESS_MAIN(TextRulesTest)
#include "text_rules_test.moc"
