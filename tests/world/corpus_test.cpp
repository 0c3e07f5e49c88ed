// Stock zone files as builders edit them by hand, each edit booted by the
// server too.

#include "test_main.h"

#include "shops/format/shop_checks.h"
#include "zone_files.h"
#include "zones/format/zone_reset_file.h"

#include <QProcess>
#include <QRegularExpression>

using namespace marl;

namespace {

// The records a file holds by its own account: its `#<vnum>` lines.
int headerLines(const std::string& bytes) {
    static const QRegularExpression header(QStringLiteral("^#[0-9]+~?[ \\t]*\\r?$"),
                                           QRegularExpression::MultilineOption);
    int count = 0;
    for (auto it = header.globalMatch(QString::fromLatin1(bytes)); it.hasNext(); it.next())
        ++count;
    return count;
}

std::string withCrLf(const std::string& lf) {
    return QByteArray::fromStdString(lf).replace("\n", "\r\n").toStdString();
}

void zoneFileRows(const QString& dir, const QString& none, const QStringList& patterns) {
    QTest::addColumn<QString>("path");
    const QFileInfoList files = QDir(dir).entryInfoList(patterns, QDir::Files, QDir::Name);
    if (files.isEmpty())
        QTest::newRow("none") << none;
    for (const QFileInfo& info : files)
        QTest::newRow(qPrintable(info.fileName())) << info.absoluteFilePath();
}

// The SYSERR lines of the server booted on the stock zone files with `file`
// as `bytes`, without their times; nothing when the server is not beside
// the corpus or cannot be built here.
std::optional<QStringList> bootErrors(const QString& file, const std::string& bytes) {
    const QString bootCheck = test::corpusDir() + QStringLiteral("/../server/boot-check");
    if (!QFileInfo(bootCheck).isExecutable())
        return std::nullopt;
    QTemporaryDir world;
    for (const QFileInfo& stock : QDir(test::corpusDir()).entryInfoList(QDir::Files))
        QFile::copy(stock.filePath(), world.filePath(stock.fileName()));
    test::writeBytes(world.filePath(file), bytes);
    QProcess server;
    server.start(bootCheck, {QStringLiteral("--strict"), world.path()});
    if (!server.waitForFinished(120000))
        return std::nullopt;
    const QString log = QString::fromLatin1(server.readAllStandardOutput());
    if (!log.contains(QStringLiteral("Done.")))
        return log.isEmpty() ? std::optional<QStringList>() : std::optional(QStringList{log});
    QStringList errors;
    for (const QString& line : log.split('\n'))
        if (line.contains(QStringLiteral("SYSERR")))
            errors << line.section(QStringLiteral(":: "), 1);
    return errors;
}

} // namespace

class CorpusTest : public QObject {
    Q_OBJECT
private slots:
    void handEdits_data();
    void handEdits();
    void zoneFiles_data() {
        zoneFileRows(test::corpusDir(), "the server's stock zone files are not at ../shared/corpus",
                     QStringList{"*.zon"});
    }
    void zoneFiles();
    void zoneEdits_data();
    void zoneEdits();
    void zoneSaveRefusals_data();
    void zoneSaveRefusals();
    void shopChecks_data();
    void shopChecks();
    void newShopBoots();
};

// Hand edits of stock files that the server boots without a new SYSERR:
// each reads with the stock file's record count and the fields of `same`
// (the edit as the editor's form has it; empty: the stock text), with
// `notes` things told; it is written back byte for byte, and the record
// holding the edit, stored from the window, changes only its own bytes.
void CorpusTest::handEdits_data() {
    test::columns<QString, QString, QString, QString, int>({"file", "from", "to", "same", "notes"});
    const QString extras = QString("E\nk~\n~\n");
    // clang-format off
    QTest::newRow("empty line between rooms") << "30.wld" << "S\n#3001\n" << "S\n\n#3001\n" << "" << 0;
    QTest::newRow("* line between rooms") << "30.wld" << "S\n#3001\n" << "S\n* temple\n#3001\n" << "" << 0;
    QTest::newRow("lines before the first room") << "30.wld" << "#3000\n" << "* Midgaard\n\n#3000\n" << "" << 0;
    QTest::newRow("tab, two blanks, blanks at the end: room line") << "30.wld" << "30 cdeh 0\nD1" << "30\tcdeh  0 \nD1" << "" << 0;
    QTest::newRow("tabs and blanks: exit line") << "30.wld" << "0 -1 3001\nS" << "0\t-1   3001  \nS" << "" << 0;
    QTest::newRow("words after D1 and S") << "30.wld" << "D1\nYou see the Temple" << "D 1 east\nYou see the Temple" << "" << 0;
    QTest::newRow("* line inside a room: told") << "30.wld" << "30 cdeh 0\nD1" << "30 cdeh 0\n* east\nD1" << "" << 1;
    QTest::newRow("129 extra descriptions: told") << "30.wld" << "S\n#3001\n"
        << extras.repeated(129) + "S\n#3001\n" << extras.repeated(128) + "S\n#3001\n" << 1;
    QTest::newRow("two blanks in a flags line") << "30.mob" << "ablno d 900 S" << "ablno d  900 S" << "" << 0;
    QTest::newRow("blanks and a tab before the alignment") << "25.mob" << "cfglmnopqr dfks -350 S"
        << "cfglmnopqr  dfks\t-350  S " << "" << 0;
    QTest::newRow("Str:25") << "30.mob" << "BareHandAttack: 10\nE" << "BareHandAttack: 10\nStr:25\nE"
        << "BareHandAttack: 10\nStr: 25\nE" << 0;
    QTest::newRow("str: 25") << "30.mob" << "BareHandAttack: 10\nE" << "BareHandAttack: 10\nstr: 25\nE"
        << "BareHandAttack: 10\nStr: 25\nE" << 0;
    QTest::newRow("Str: 0 is 3") << "30.mob" << "BareHandAttack: 10\nE" << "BareHandAttack: 10\nStr: 0\nE"
        << "BareHandAttack: 10\nStr: 3\nE" << 0;
    QTest::newRow("empty and * lines in an extended block") << "30.mob" << "BareHandAttack: 10\nE"
        << "\n* hits hard\nBAREHANDATTACK:10\n\nE" << "" << 0;
    QTest::newRow("lower-case type letter e") << "30.mob" << "aeglm d 1000 E" << "aeglm d 1000 e" << "" << 0;
    QTest::newRow("blanks after the numbers of an object") << "30.obj" << "17 0 1\n50 50 1 0\n65 300 100\n"
        << "17 0 1 \n50 50 1 0\t\n 65  300 100  \n" << "" << 0;
    QTest::newRow("empty and * lines between objects") << "30.obj" << "65 300 100\n#3001"
        << "65 300 100\n\n* beer\n\n#3001" << "" << 0;
    QTest::newRow("the server stops at #99999: the rest kept, told") << "30.obj" << "\n$\n"
        << "\n#99999\nnotes, never read\n$\n" << "" << 1;
    QTest::newRow("a word after the last number") << "30.obj" << "65 300 100\n" << "65 300 100kg\n" << "" << 0;
    QTest::newRow("type names in lower case, keywords, a ; note") << "30.shp" << "SCROLL\nWAND\n"
        << "scrolls magic\nwand ; sticks\n" << "SCROLL s magic\nWAND\n" << 0;
    QTest::newRow("* and empty lines among products: told") << "30.shp" << "3050\n3051\n" << "3050\n* scrolls\n\n3051\n" << "" << 1;
    QTest::newRow("a text read over between shops") << "30.shp" << "0\n0\n#3001~" << "0\n0\nThe grocer~\n#3001~" << "" << 0;
    QTest::newRow("a header's ~ on the next line: told") << "30.shp" << "#3001~" << "#3001\n~" << "#3001~" << 1;
    QTest::newRow("blanks, tabs and + around numbers") << "30.shp" << "2\n3000\n2\n3033\n" << "2\n +3000\t\n2 \n3033\n" << "" << 0;
    QTest::newRow("words after a factor") << "30.shp" << "1.15\n" << "1.15 (markup)\n" << "1.15 (markup)\n" << 0;
    // clang-format on
}

void CorpusTest::handEdits() {
    QFETCH(QString, file);
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(QString, same);
    QFETCH(int, notes);
    const QString path = test::corpusDir() + '/' + file;
    if (!QFileInfo(path).isFile())
        QSKIP(qPrintable(path));
    const std::string stock = test::readBytes(path);
    const std::size_t at = stock.find(from.toStdString());
    QVERIFY(at != std::string::npos);
    const auto edited = [&](const QString& text) {
        return std::string(stock).replace(at, std::size_t(from.size()), text.toStdString());
    };
    const std::string bytes = edited(to);
    test::byExtension(file, [&]<typename Kind>() {
        auto table = std::make_unique<typename Kind::File>();
        auto expected = std::make_unique<typename Kind::File>();
        const int count = Kind::read(bytes, *table);
        QCOMPARE(count, headerLines(stock));
        QCOMPARE(Kind::read(edited(same.isEmpty() ? from : same), *expected), count);
        QCOMPARE(int(table->notes.size()), notes);
        QVERIFY2(Kind::write(*table, count) == bytes, "not written back byte for byte");
        // The record holding the edit.
        std::size_t start = table->leader.size();
        int slot = 0;
        while (slot + 1 < count && start + (*table)[std::size_t(slot)].Source.size() <= at)
            start += (*table)[std::size_t(slot++)].Source.size();
        auto& record = (*table)[std::size_t(slot)];
        // Read as the editor's own form of the edit is read: the record is
        // written from its fields as that one is, but for the lines the
        // server passes over and the extended lines, which stay as they were.
        auto model = (*expected)[std::size_t(slot)];
        model.After = record.After;
        if constexpr (requires { model.ExtendedLines; })
            model.ExtendedLines = record.ExtendedLines;
        QCOMPARE(test::describe(record), test::describe(model));
        QVERIFY(test::sameFields(record, model));
        const std::size_t after = bytes.size() - start - record.Source.size();
        record.Source.clear();
        const std::string written = Kind::write(*table, count);
        QVERIFY(written.compare(0, start, bytes, 0, start) == 0);
        QVERIFY(written.size() > after &&
                written.compare(written.size() - after, after, bytes, bytes.size() - after) == 0);
        auto again = std::make_unique<typename Kind::File>();
        QCOMPARE(Kind::read(written, *again), count);
        for (int other = 0; other < count; ++other)
            QVERIFY(test::sameFields((*again)[std::size_t(other)], (*table)[std::size_t(other)]));
    });
    // The server boots the edited world as it boots the stock one.
    static const std::optional<QStringList> stockErrors = bootErrors(file, stock);
    if (stockErrors)
        QCOMPARE(bootErrors(file, bytes), stockErrors);
}

// The lines the server counts as commands before it reads them: after the
// first three lines it reads, those that begin with a command letter and a
// blank, or are `S` alone.
int serverCommandCount(const std::string& bytes) {
    static const QRegularExpression line(QStringLiteral("^([MOPGERD] .*|S\\r*)$"),
                                         QRegularExpression::MultilineOption);
    static const QRegularExpression header(QStringLiteral("^[^*\\r\\n].*\\n.*\\n.*\\n"));
    const QString text = QString::fromLatin1(bytes);
    int count = 0;
    for (auto it = line.globalMatch(text, header.match(text).capturedEnd()); it.hasNext();
         it.next())
        ++count;
    return count;
}

// Each stock zone file reads with the server's count and is written back
// byte for byte; each command changed in turn writes only its own line.
void CorpusTest::zoneFiles() {
    QFETCH(QString, path);
    if (!QFileInfo(path).isFile())
        QSKIP(qPrintable(path));
    const std::string stock = test::readBytes(path);
    // The same with CR LF line ends: a changed command ends as the file's lines.
    for (const std::string& bytes : {stock, withCrLf(stock)}) {
        const std::string eol = bytes == stock ? "\n" : "\r\n";
        ZoneRecord zone;
        QCOMPARE(readZone(bytes, zone), serverCommandCount(bytes));
        QVERIFY2(writeZone(zone) == bytes, "not written back byte for byte");
        std::size_t start = zone.Source.size();
        for (ZoneCommand& command : zone.Commands) {
            const ZoneCommand before = command;
            command.Source.clear();
            command.Arg1 += command.Command != kComment;
            const std::string line = commandLine(command) + eol;
            std::string expected = bytes;
            expected.replace(start, before.Source.size(), line);
            QCOMPARE(QString::fromLatin1(writeZone(zone)), QString::fromLatin1(expected));
            ZoneRecord again;
            QCOMPARE(readZone(expected, again), serverCommandCount(bytes));
            QVERIFY(sameFields(again, zone));
            command = before;
            start += before.Source.size();
        }
    }
}

// Hand edits of stock 30.zon: read as the server reads them (a count of
// commands, or the line refused and why) and, read, written back byte for
// byte; the server agrees, but for the older header it no longer reads.
void CorpusTest::zoneEdits_data() {
    test::columns<QString, QString, QString, bool>({"from", "to", "read", "boots"});
    const QString pad(255 - 9, 'x');
    // clang-format off
    QTest::newRow("tabs and blanks between numbers") << "M 0 3000 1 3033" << "M 0  3000\t1 3033 " << "166" << true;
    QTest::newRow("blanks before a comment") << "* Mobiles" << "   * Mobiles" << "166" << true;
    QTest::newRow("empty lines between commands") << "* Mobiles\n" << "* Mobiles\n\n\r\n" << "166" << true;
    QTest::newRow("no tilde after the name") << "City~" << "City" << "166" << true;
    QTest::newRow("older header: three numbers") << "3000 3099 15 2" << "3099 15 2" << "166" << false;
    QTest::newRow("long comment, the rest passed over") << "* Mobiles" << "* Mobiles" + pad + "* more" << "166" << true;
    QTest::newRow("long comment, the rest read") << "* Mobiles" << "* Mobiles" + pad + "more"
        << "5: the line is longer than the 255 characters the server reads at once, and it reads the rest as a line of its own" << false;
    QTest::newRow("bottom above top") << "3000 3099" << "3100 3099"
        << "3: the bottom VNum 3100 is above the top VNum 3099" << false;
    QTest::newRow("a header line without #") << "#30" << "30" << "1: expected the zone header \"#<zone>\"" << false;
    QTest::newRow("missing number") << "M 0 3000 1 3033" << "M 0 3000 1"
        << "6: expected the command \"M <if-flag> <mobile> <max existing> <room>\"" << false;
    QTest::newRow("R with two numbers") << "\nS\n" << "\nR 0 3001\nS\n"
        << "174: expected the command \"R <if-flag> <room> <object>\"" << false;
    const char* uncounted = "6: the server does not count this line as a command: it counts a line that begins with M, O, P, G, E, R or D and a blank";
    QTest::newRow("a tab after the letter") << "M 0 3000 1 3033" << "M\t0 3000 1 3033" << uncounted << false;
    QTest::newRow("blanks before the letter") << "M 0 3000 1 3033" << " M 0 3000 1 3033" << uncounted << false;
    QTest::newRow("lower-case letter") << "M 0 3000 1 3033" << "m 0 3000 1 3033" << uncounted << false;
    QTest::newRow("blanks alone") << "* Mobiles" << "  "
        << "5: expected a command, a \"*\" comment or the end \"S\", not blanks alone" << false;
    QTest::newRow("S with a blank") << "\nS\n" << "\nS \n" << "174: the end of the commands must be \"S\" alone on its line" << false;
    QTest::newRow("$ for the end") << "\nS\n" << "\n$\n" << "174: the end of the commands must be \"S\" alone on its line" << false;
    QTest::newRow("a command after the end") << "\nS\n$\n" << "\nS\n$\nG 1 3020 100\n"
        << "176: the server counts this line as a command, but it stands after the end \"S\"" << false;
    QTest::newRow("no end") << "\nS\n$\n" << "\n" << "174: expected the end of the reset commands, a line \"S\"" << false;
    // clang-format on
}

void CorpusTest::zoneEdits() {
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(QString, read);
    QFETCH(bool, boots);
    const QString path = test::corpusDir() + "/30.zon";
    if (!QFileInfo(path).isFile())
        QSKIP(qPrintable(path));
    const std::string stock = test::readBytes(path);
    const std::size_t at = stock.find(from.toStdString());
    QVERIFY(at != std::string::npos);
    const std::string bytes =
        std::string(stock).replace(at, std::size_t(from.size()), to.toStdString());
    ZoneRecord zone;
    QString result;
    try {
        result = QString::number(readZone(bytes, zone));
        QVERIFY2(writeZone(zone) == bytes, "not written back byte for byte");
    } catch (const FormatError& error) {
        result = QString("%1: %2").arg(error.line()).arg(QString::fromStdString(error.problem()));
    }
    QCOMPARE(result, read);
    // The server's messages without the lines they name, which the edits move.
    const auto errors = [](const std::string& file) {
        std::optional<QStringList> found = bootErrors("30.zon", file);
        if (found)
            found->replaceInStrings(QRegularExpression("line [0-9]+"), "line");
        return found;
    };
    static const std::optional<QStringList> stockErrors = errors(stock);
    if (stockErrors)
        QCOMPARE(errors(bytes) == stockErrors, boots);
}

// What Save refuses of a zone, at its line: each row a zone of one command,
// then its name or bottom set as a window would set them.
void CorpusTest::zoneSaveRefusals_data() {
    test::columns<QString, int, QString, QString>({"name", "bottom", "command", "refused"});
    // clang-format off
    QTest::newRow("all good, at the limits") << "Zone" << 3000 << "E 1 3020 100 17" << "";
    QTest::newRow("a tilde in the name") << "Zone~s" << 3000 << "M 0 1 1 1" << "2: the name holds a \"~\", which would end it there";
    QTest::newRow("a name of * ") << "* Zone" << 3000 << "M 0 1 1 1" << "2: the name begins with \"*\", which makes the server pass over its line";
    QTest::newRow("a name too long") << QString(255, 'x') << 3000 << "M 0 1 1 1" << "2: the name is longer than the 254 characters the server reads";
    QTest::newRow("bottom above top") << "Zone" << 3100 << "M 0 1 1 1" << "3: the bottom VNum 3100 is above the top VNum 3099";
    QTest::newRow("wear position 18") << "Zone" << 3000 << "E 1 3020 100 18" << "4: the wear position 18 is outside 0-17";
    QTest::newRow("wear position -1") << "Zone" << 3000 << "E 1 3020 100 -1" << "4: the wear position -1 is outside 0-17";
    QTest::newRow("direction 6") << "Zone" << 3000 << "D 0 3001 6 1" << "4: the direction 6 is outside 0-5";
    QTest::newRow("direction -1") << "Zone" << 3000 << "D 0 3001 -1 1" << "4: the direction -1 is outside 0-5";
    QTest::newRow("door state 3") << "Zone" << 3000 << "D 0 3001 5 3" << "4: the door state 3 is outside 0-2";
    QTest::newRow("a line too long") << "Zone" << 3000 << "G 1 3020 100 " + QString(245, 'x')
        << "4: the line is longer than the 255 characters the server reads at once";
    // clang-format on
}

void CorpusTest::zoneSaveRefusals() {
    QFETCH(QString, name);
    QFETCH(int, bottom);
    QFETCH(QString, command);
    QFETCH(QString, refused);
    ZoneRecord zone;
    QCOMPARE(
        readZone(test::lines("#30|Zone~|3000 3099 15 2|" + command.left(200) + "|S|$", "\n"), zone),
        2);
    zone.Name = name.toStdString();
    zone.Bottom = bottom;
    zone.Commands[0].Comment += command.mid(200).toStdString();
    QStringList problems;
    for (const ZoneProblem& problem : checkZone(zone))
        problems
            << QString("%1: %2").arg(problem.line).arg(QString::fromStdString(problem.problem));
    QCOMPARE(problems.join('|'), refused);
}

// What the checks find of stock shop #3000 with one field set as a window
// sets it (`messageN`, `buy`, `sell`, `hourN`, lists of numbers, buy types
// as `type:keywords`, `older` for the older form; `&` between two), what
// Save only warns of marked.  Stored, it changes only its own lines and
// reads back; and the server drops the messages the checks say it drops,
// and logs a list it cuts short, and nothing else of it.
void CorpusTest::shopChecks_data() {
    test::columns<QString, QString>({"edit", "problems"});
    const QString drops = "; the server drops it";
    // clang-format off
    QTest::newRow("two %s") << "message0=%s %s hi" << "The message when the keeper has no such item has two %s" + drops;
    QTest::newRow("%d outside the price messages") << "message1=%s costs %d"
        << "The message when the customer has no such item has a %d, which only the messages when the keeper sells or buys may have" + drops;
    QTest::newRow("two %d") << "message5=%s %d and %d" << "The message when the keeper sells has two %d" + drops;
    QTest::newRow("%d before %s") << "message6=%d for %s" << "The message when the keeper buys has its %d before any %s (the customer's name comes first)" + drops;
    QTest::newRow("%d and no %s") << "message5=That'll be %d" << "The message when the keeper sells has its %d before any %s (the customer's name comes first)" + drops;
    QTest::newRow("% at the end") << "message2=%s 100%" << "The message when the keeper does not buy the item has a % at its end, which the server does not take" + drops;
    QTest::newRow("%% at the end") << "message2=%s 100%%" << "The message when the keeper does not buy the item has a % at its end, which the server does not take" + drops;
    QTest::newRow("%% before a blank") << "message3=%s 50%% off" << "The message when the keeper cannot afford the item has \"% \", which the server does not take" + drops;
    QTest::newRow("% at a line's end") << "message4=%s 5%/more" << "The message when the customer cannot afford the item has a % at the end of a line, which the server does not take" + drops;
    QTest::newRow("%s on two lines") << "message4=%s a/%s b" << "The message when the customer cannot afford the item has two %s" + drops;
    QTest::newRow("every message good, %s and %d where they may stand") << "message6=%s here, %d coins/for it" << "";
    QTest::newRow("a message past the server's limit") << "message3=" + QString(8200, 'x')
        << "The message when the keeper cannot afford the item is 8216 bytes as the server reads it; it reads at most 8191 and stops booting at a longer one";
    QTest::newRow("an empty message") << "message0=" << "The message when the keeper has no such item is empty: the server keeps no message for it, as for one it drops";
    QTest::newRow("a factor not a number") << "buy=abc" << "The buying price factor \"abc\" is not a number";
    QTest::newRow("an empty factor") << "sell=" << "The selling price factor is empty; the server needs a number there";
    QTest::newRow("selling above buying: a warning") << "sell=1.2" << "warning: The selling price factor 1.2 is above the buying one 1.15: players earn money by buying and selling back";
    QTest::newRow("hour 29") << "hour0=29" << "The first opening hour 29 is outside 0-28";
    QTest::newRow("hour -1") << "hour3=-1" << "The second closing hour -1 is outside 0-28";
    QTest::newRow("a negative product") << "products=3050 -5" << "The products hold -5, and a negative number ends their list there";
    QTest::newRow("a negative type") << "types=-3" << "The buy types hold -3, and a negative number ends their list there";
    QTest::newRow("; in keywords") << "types=5:sword;x" << "The buy type WEAPON has a \";\" in its keywords, where the server stops reading them";
    QTest::newRow("keywords past the server's line") << "types=5:" + QString(8176, 'x')
        << "The keywords of the buy type WEAPON are not one line of at most 8175 characters, as the server reads them";
    QTest::newRow("101 products") << "products=" + QString("3050 ").repeated(101).trimmed()
        << "The shop has 101 products; the server keeps the first 100 and logs the rest";
    QTest::newRow("older form: six products") << "older&products=1 2 3 4 5 6" << "An older-form shop file holds at most five products per shop; this shop has 6";
    QTest::newRow("older form: two rooms") << "older&rooms=3033 3034" << "An older-form shop file holds at most one room per shop; this shop has 2";
    QTest::newRow("older form: keywords") << "older&types=5:sword" << "An older-form shop file holds no keywords after a buy type";
    QTest::newRow("keeper, temper, flags, trade, rooms, types") << "keeper=3001&temper=1&flags=3&trade=127&rooms=3033 3034&types=9:chain&hour2=5" << "";
    // clang-format on
}

void CorpusTest::shopChecks() {
    QFETCH(QString, edit);
    QFETCH(QString, problems);
    const QString path = test::corpusDir() + "/30.shp";
    if (!QFileInfo(path).isFile())
        QSKIP(qPrintable(path));
    const std::string stock = test::readBytes(path);
    auto table = std::make_unique<ShopTable>();
    const int count = readShops(stock, *table);
    ShopRecord& shop = (*table)[0];
    const std::size_t length = table->leader.size() + shop.Source.size();
    shop.Source.clear();
    const auto numbers = [](const QString& list) {
        std::vector<std::int32_t> out;
        for (const QString& number : list.split(' ', Qt::SkipEmptyParts))
            out.push_back(number.toInt());
        return out;
    };
    for (const QString& change : edit.split('&')) {
        const QString field = change.section('=', 0, 0), value = change.section('=', 1);
        const std::string text = QString(value).replace('/', "\r\n").toStdString();
        const int n = field.right(1).toInt();
        if (field == "older")
            table->leader.clear();
        else if (field.startsWith("message"))
            shop.Messages[std::size_t(n)] = text;
        else if (field.startsWith("hour"))
            shop.Hours[std::size_t(n)] = value.toInt();
        else if (field == "buy" || field == "sell")
            (field == "buy" ? shop.BuyFactor : shop.SellFactor) = text;
        else if (field == "products" || field == "rooms")
            (field == "rooms" ? shop.Rooms : shop.Products) = numbers(value);
        else if (field == "types")
            shop.BuyTypes = {{value.section(':', 0, 0).toInt(), value.section(':', 1).toStdString()}};
        else
            (field == "keeper" ? shop.Keeper : field == "temper" ? shop.Temper : field == "flags" ? shop.Flags : shop.TradeWith) = value.toInt();
    }
    QStringList found, dropped;
    bool boots = true;
    for (const ShopProblem& problem : shopProblems(shop, table->lineEnd, olderFormAt(*table, 0))) {
        found << (problem.refusesSave ? "" : "warning: ") + QString::fromStdString(problem.what);
        boots = boots && problem.severity != Severity::RefusesBoot;
        if (problem.severity == Severity::OnlyLogged)
            dropped << (problem.field == ShopField::Message ? QString("message %1").arg(problem.index) : "list");
    }
    QCOMPARE(found.join('|'), problems);
    if (!boots || edit.startsWith("older"))
        return;
    // Written, only shop #3000's lines change, and it reads back as stored.
    const std::string written = writeShops(*table, count);
    QVERIFY(written.compare(written.size() - (stock.size() - length), std::string::npos, stock, length) == 0);
    auto again = std::make_unique<ShopTable>();
    QCOMPARE(readShops(written, *again), count);
    QVERIFY(test::sameFields((*again)[0], shop) || edit.contains(';')); // read up to the ;
    const std::optional<QStringList> errors = bootErrors("30.shp", written);
    if (!errors)
        return;
    QStringList logged;
    static const QRegularExpression message("Shop #3000 .*message #([0-6])");
    for (const QString& error : *errors)
        if (const auto match = message.match(error); match.hasMatch())
            logged << "message " + match.captured(1);
        else if (error.contains("MAX_SHOP_OBJ"))
            logged << "list";
    logged.removeDuplicates();
    QCOMPARE(logged, dropped);
}

// A shop made in code, as a window makes one, in a new file: the server
// boots the stock world with it in place of the stock shops and logs
// nothing it does not log of those.
void CorpusTest::newShopBoots() {
    auto table = std::make_unique<ShopTable>();
    ShopRecord& shop = (*table)[0];
    shop.VNum = 3000;
    shop.Products = {3010, 3011};
    shop.BuyFactor = "1.3";
    shop.SellFactor = "0.4";
    shop.BuyTypes = {{19, ""}, {17, "water | milk"}};
    shop.Messages = {"%s No such bread.", "%s You have none.", "%s Not from me!", "%s I am out of coins.",
                     "%s You cannot pay.", "%s That is %d coins,\r\nfresh.", "%s Here are %d coins."};
    shop.Temper = 1;
    shop.Keeper = 3001;
    shop.TradeWith = 2;
    shop.Rooms = {3009, 3010};
    shop.Hours = {6, 20, 0, 0};
    QVERIFY(shopProblems(shop, table->lineEnd, olderFormAt(*table, 0)).empty());
    const std::string written = writeShops(*table, 1);
    QVERIFY(written.starts_with("CircleMUD v3.0 Shop File~\r\n#3000~\r\n3010\r\n"));
    auto again = std::make_unique<ShopTable>();
    QCOMPARE(readShops(written, *again), 1);
    QVERIFY(test::sameFields((*again)[0], shop));
    if (!QFileInfo(test::corpusDir() + "/30.shp").isFile())
        QSKIP("the server's stock zone files are not at ../shared/corpus");
    const std::optional<QStringList> stockErrors = bootErrors("30.shp", test::readBytes(test::corpusDir() + "/30.shp"));
    if (stockErrors)
        QCOMPARE(bootErrors("30.shp", written), stockErrors);
}

MARL_TEST_MAIN(CorpusTest)
#include "corpus_test.moc"
