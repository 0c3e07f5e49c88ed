// Stock zone files as builders edit them by hand, each edit booted by the
// server too.

#include "test_main.h"

#include "zone_files.h"

#include <QProcess>
#include <QRegularExpression>

using namespace marl;

namespace {

// The records a file holds by its own account: its `#<vnum>` lines.
int headerLines(const std::string& bytes) {
    static const QRegularExpression header(QStringLiteral("^#[0-9]+[ \\t]*\\r?$"),
                                           QRegularExpression::MultilineOption);
    int count = 0;
    for (auto it = header.globalMatch(QString::fromLatin1(bytes)); it.hasNext(); it.next())
        ++count;
    return count;
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
        auto table = std::make_unique<typename Kind::Table>();
        auto expected = std::make_unique<typename Kind::Table>();
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
        auto again = std::make_unique<typename Kind::Table>();
        QCOMPARE(Kind::read(written, *again), count);
        for (int other = 0; other < count; ++other)
            QVERIFY(test::sameFields((*again)[std::size_t(other)], (*table)[std::size_t(other)]));
    });
    // The server boots the edited world as it boots the stock one.
    static const std::optional<QStringList> stockErrors = bootErrors(file, stock);
    if (stockErrors)
        QCOMPARE(bootErrors(file, bytes), stockErrors);
}

MARL_TEST_MAIN(CorpusTest)
#include "corpus_test.moc"
