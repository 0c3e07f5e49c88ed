#include <QtTest>

#include "test_support.h"
#include "world/numeric_rule.h"
#include "world/text_reader.h"
#include "world/text_writer.h"
#include "world/vocabulary.h"
#include "world/zone.h"
#include "rooms/room_record.h"

using namespace marl;
using marl::test::crlf;
using marl::test::lf;

class TextRulesTest : public QObject {
    Q_OBJECT
private slots:
    void multiLineText_data();
    void multiLineText();
    void oneLineStringKeepsBlanksAndDropsRestOfLine();
    void lineReaderAcceptsLfAndCrLf();
    void missingTildeNamesItsLine();
    void writerKeepsTheFilesLineEnds_data();
    void writerKeepsTheFilesLineEnds();
    void flags_data();
    void flags();
    void flagTextOfNothingIsZero();
    void zoneFromName_data();
    void zoneFromName();
    void range_data();
    void range();
    void keys_data();
    void keys();
    void numberFields_data();
    void numberFields();
    void endLine_data();
    void endLine();
};

void TextRulesTest::multiLineText_data() {
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QByteArray>("value");
    QTest::newRow("empty") << QByteArray("~\r\nnext") << QByteArray("");
    QTest::newRow("empty line then tilde") << QByteArray("\r\n~\r\n") << QByteArray("");
    QTest::newRow("crlf drops the break before ~")
        << QByteArray("one\r\ntwo\r\n~\r\n") << QByteArray("one\r\ntwo");
    QTest::newRow("lf held as crlf") << QByteArray("one\ntwo\n~\n") << QByteArray("one\r\ntwo");
    QTest::newRow("tilde after text keeps all") << QByteArray("A cityguard~\n")
                                                << QByteArray("A cityguard");
    QTest::newRow("single char then tilde") << QByteArray("x~\n") << QByteArray("x");
    QTest::newRow("blank line kept") << QByteArray("a\n\n~\n") << QByteArray("a\r\n");
    QTest::newRow("rest of ~ line dropped") << QByteArray("a\r\n~ junk\r\n") << QByteArray("a");
    QTest::newRow("latin-1 bytes") << QByteArray("caf\xe9\r\n~\r\n") << QByteArray("caf\xe9");
}

void TextRulesTest::multiLineText() {
    QFETCH(QByteArray, file);
    QFETCH(QByteArray, value);
    TextReader in(std::string_view(file.constData(), static_cast<std::size_t>(file.size())));
    QCOMPARE(QByteArray::fromStdString(in.readTildeText("text")), value);
    // What comes after the text's `~` line is the next thing read.
    if (file.endsWith("next"))
        QCOMPARE(QString::fromStdString(in.readLine("next")), QStringLiteral("next"));
    // Written back and read again, the value is the same.
    TextWriter out(in.lineEnd());
    out.tildeText(value.toStdString());
    TextReader again(out.text());
    QCOMPARE(QByteArray::fromStdString(again.readTildeText("text")), value);
}

void TextRulesTest::oneLineStringKeepsBlanksAndDropsRestOfLine() {
    const std::string file = crlf({"  The Bakery  ~ trailing", "next"});
    TextReader in(file);
    QCOMPARE(in.readTildeString("name"), std::string("  The Bakery  "));
    QCOMPARE(in.readLine("next"), std::string("next"));
}

void TextRulesTest::lineReaderAcceptsLfAndCrLf() {
    TextReader crlfFile("a\r\nb\r\n");
    QVERIFY(crlfFile.lineEnd() == LineEnd::CrLf);
    QCOMPARE(crlfFile.readLine("a"), std::string("a"));
    QCOMPARE(crlfFile.lineNumber(), 2);
    TextReader lfFile("a\nb\n");
    QVERIFY(lfFile.lineEnd() == LineEnd::Lf);
    QCOMPARE(lfFile.readLine("a"), std::string("a"));
    QCOMPARE(lfFile.readLine("b"), std::string("b"));
    QVERIFY(lfFile.atEnd());
    QVERIFY_THROWS_EXCEPTION(FormatError, lfFile.readLine("more"));
}

void TextRulesTest::missingTildeNamesItsLine() {
    const std::string file = lf({"one", "two", "three without end"});
    TextReader in(file);
    in.readLine("one");
    try {
        in.readTildeText("the room description ending in \"~\"");
        QFAIL("no error");
    } catch (const FormatError& error) {
        QCOMPARE(error.line(), 2);
        QCOMPARE(error.expected(), std::string("the room description ending in \"~\""));
    }
}

void TextRulesTest::writerKeepsTheFilesLineEnds_data() {
    QTest::addColumn<bool>("lfFile");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("crlf") << false << QByteArray("#3001\r\nName~\r\na\r\nb\r\n~\r\n$\r\n");
    QTest::newRow("lf") << true << QByteArray("#3001\nName~\na\nb\n~\n$\n");
}

void TextRulesTest::writerKeepsTheFilesLineEnds() {
    QFETCH(bool, lfFile);
    QFETCH(QByteArray, expected);
    TextWriter out(lfFile ? LineEnd::Lf : LineEnd::CrLf);
    out.header(3001).tildeString("Name").tildeText("a\r\nb").end();
    QCOMPARE(QByteArray::fromStdString(out.text()), expected);
}

void TextRulesTest::flags_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("set");  // one character per room flag
    QTest::newRow("adk") << "adk" << "10010000001";
    QTest::newRow("zero") << "0" << "00000000000";
    QTest::newRow("empty") << "" << "00000000000";
    QTest::newRow("numbers") << "12" << "00000000000";
    QTest::newRow("capitals ignored") << "ADk" << "00000000001";
    QTest::newRow("unlisted letters ignored") << "zx" << "00000000000";
}

void TextRulesTest::flags() {
    QFETCH(QString, text);
    QFETCH(QString, set);
    const std::vector<bool> flags = flagSet(kRoomFlags, text.toStdString());
    QString got;
    for (bool flag : flags)
        got += flag ? '1' : '0';
    QCOMPARE(got, set);
}

void TextRulesTest::flagTextOfNothingIsZero() {
    QCOMPARE(flagText(kRoomFlags, std::vector<bool>(11, false)), std::string("0"));
    std::vector<bool> darkIndoors(11, false);
    darkIndoors[3] = darkIndoors[0] = true;
    QCOMPARE(flagText(kRoomFlags, darkIndoors), std::string("ad"));
}

void TextRulesTest::zoneFromName_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("zone");  // -1: refused
    QTest::newRow("30.wld") << "30.wld" << 30;
    QTest::newRow("030.wld") << "030.wld" << 30;
    QTest::newRow("7.old.wld") << "7.old.wld" << 7;
    QTest::newRow("castle.wld") << "castle.wld" << -1;
    QTest::newRow("30abc.wld") << "30abc.wld" << -1;
    QTest::newRow(".wld") << ".wld" << -1;
    QTest::newRow("no extension") << "12" << 12;
    QTest::newRow("too large") << "99999999999.wld" << -1;
}

void TextRulesTest::zoneFromName() {
    QFETCH(QString, name);
    QFETCH(int, zone);
    const auto got = zoneFromFileName(name.toStdString());
    QCOMPARE(got.has_value() ? *got : -1, zone);
    if (got)
        QCOMPARE(zoneFileName(*got, ".wld"), std::to_string(zone) + ".wld");
}

void TextRulesTest::range_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<qint64>("min");
    QTest::addColumn<qint64>("max");
    QTest::addColumn<QString>("result");
    QTest::newRow("in range") << "42" << qint64(-1) << qint64(99999) << "42";
    QTest::newRow("below") << "-5" << qint64(-1) << qint64(99999) << "-1";
    QTest::newRow("above") << "123456" << qint64(-1) << qint64(99999) << "99999";
    QTest::newRow("empty left alone") << "" << qint64(1) << qint64(30) << "";
    QTest::newRow("lone minus left alone") << "-" << qint64(1) << qint64(30) << "-";
    QTest::newRow("minus after digit left alone") << "1-2" << qint64(-1) << qint64(99999) << "1-2";
    QTest::newRow("eleven digits clamp") << "99999999999" << qint64(INT32_MIN) << qint64(INT32_MAX)
                                         << "2147483647";
    QTest::newRow("forty digits clamp") << QString(40, '9') << qint64(INT32_MIN)
                                        << qint64(INT32_MAX) << "2147483647";
    QTest::newRow("long negative clamp") << "-" + QString(30, '9') << qint64(-1000)
                                         << qint64(1000) << "-1000";
    QTest::newRow("zero below one") << "0" << qint64(1) << qint64(20) << "1";
}

void TextRulesTest::range() {
    QFETCH(QString, text);
    QFETCH(qint64, min);
    QFETCH(qint64, max);
    QFETCH(QString, result);
    QCOMPARE(QString::fromStdString(applyRange(text.toStdString(), min, max)), result);
}

void TextRulesTest::keys_data() {
    QTest::addColumn<char>("key");
    QTest::addColumn<bool>("withMinus");
    QTest::addColumn<bool>("withoutMinus");
    QTest::newRow("digit") << '7' << true << true;
    QTest::newRow("minus") << '-' << true << false;
    QTest::newRow("letter") << 'a' << false << false;
    QTest::newRow("plus") << '+' << false << false;
    QTest::newRow("dot") << '.' << false << false;
    QTest::newRow("space") << ' ' << false << false;
}

void TextRulesTest::keys() {
    QFETCH(char, key);
    QFETCH(bool, withMinus);
    QFETCH(bool, withoutMinus);
    QCOMPARE(numericKeyAllowed(key, true), withMinus);
    QCOMPARE(numericKeyAllowed(key, false), withoutMinus);
}

void TextRulesTest::numberFields_data() {
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("flagFields");
    QTest::addColumn<QStringList>("numberFields");
    QTest::newRow("plain") << "30 ad 1" << QStringList{"30", "ad", "1"}
                           << QStringList{"30", "ad", "1"};
    QTest::newRow("two spaces: empty flag text")
        << "30  0" << QStringList{"30", "", "0"} << QStringList{"30", "0"};
    QTest::newRow("trailing blanks") << "0 -1 4048 " << QStringList{"0", "-1", "4048"}
                                     << QStringList{"0", "-1", "4048"};
}

void TextRulesTest::numberFields() {
    QFETCH(QString, line);
    QFETCH(QStringList, flagFields);
    QFETCH(QStringList, numberFields);
    const std::string text = line.toStdString();
    QStringList got;
    for (auto field : splitFlagLine(text, 3))
        got << QString::fromStdString(std::string(field));
    QCOMPARE(got, flagFields);
    got.clear();
    for (auto field : splitNumbers(text))
        got << QString::fromStdString(std::string(field));
    QCOMPARE(got, numberFields);
}

void TextRulesTest::endLine_data() {
    QTest::addColumn<QString>("line");
    QTest::addColumn<bool>("ends");
    QTest::newRow("$") << "$" << true;
    QTest::newRow("$~") << "$~" << true;
    QTest::newRow("#$") << "#$" << true;
    QTest::newRow("#3001") << "#3001" << false;
}

void TextRulesTest::endLine() {
    QFETCH(QString, line);
    QFETCH(bool, ends);
    QCOMPARE(isEndLine(line.toStdString()), ends);
}

QTEST_GUILESS_MAIN(TextRulesTest)
#include "text_rules_test.moc"
