// marl-check run as a builder runs it, from outside: what it prints, its exit
// status, and the files --rewrite leaves.

#include "test_main.h"
#include "built_programs.h"

#include "../world/zone_files.h"

#include <QProcess>

#include <sys/stat.h>

using namespace marl;

class MarlCheckTest : public QObject {
    Q_OBJECT
private slots:
    void init();
    void runs_data();
    void runs();
    void wholeCorpus();
    void reportThatCannotBeWritten_data();
    void reportThatCannotBeWritten();

private:
    QTemporaryDir dir_;
    QTemporaryDir out_; // the folder of --rewrite, OUT in the rows
};

namespace {

void mkfifo(const QString& path) {
    QFile::remove(path); // left by the row before
    QVERIFY2(::mkfifo(path.toLocal8Bit().constData(), 0644) == 0, qPrintable(path));
}

struct Run {
    int status = -1;
    QString out, err;
};

Run runCheck(const QStringList& arguments, const QString& workDir = QString()) {
    QProcess process;
    process.setWorkingDirectory(workDir);
    process.start(QStringLiteral(MARL_CHECK_PATH), arguments);
    Run run;
    if (process.waitForFinished(30000) && process.exitStatus() == QProcess::NormalExit)
        run = {process.exitCode(), QString::fromLatin1(process.readAllStandardOutput()),
               QString::fromLatin1(process.readAllStandardError())};
    return run;
}

} // namespace

void MarlCheckTest::init() {
    auto put = [this](const char* name, const QString& file, const char* eol = "\n") {
        test::writeBytes(dir_.filePath(name), test::lines(file, eol));
    };
    const QString room = "#3001|Bakery~|Warm.|~|7 0 1|S|$";
    const QString mobile = "#1|a~|b~|~|~|0 0 0 S|1 2 3 1d1+1 1d1+1|0 0|8 8 0|";
    for (const char* name : {"30.wld", "030.wld", "castle.wld"})
        put(name, room);
    put("30.mob", mobile + QString(mobile).replace("S|", "E|").replace("#1", "#2") + "Str: 18|E|$");
    put("order.mob", QString(mobile).replace("#1", "#2") + mobile + "$");
    put("31.mob", QString(mobile).replace("0 0|8", "5OO 0|8") + "$");
    put("30.obj", "#1|a~|b~|c~|~|1 0 a|0 0 0 0|0 0 0|A|1 2|$", "\r\n");
    put("notes.txt", "hello");
    const QString zone = "#30|Zone~|3000 3099 15 2|* wizard|M 0 3000 1 3001 wizard|S|$";
    put("30.zon", zone);
    put("31.zon", QString(zone).replace("3000 3099", "3100 3099"));
    put("32.zon", QString(zone).replace("3000 3099", "3099"));
    QDir(dir_.path()).mkpath("sub.wld");
    QDir(dir_.path()).mkpath("other");
    put("other/30.wld", room);
    put("31.wld", room);
    put("neg.wld", QString(room).replace("#3001", "#-5"));
    put("pair.obj", "#+-3099|a~|b~|c~|~|1 0 a|0 0 0 0|0 0 0|$");
    put("big.mob", QString(mobile).replace("#1", "#99999999999") + "$");
    put("mac.wld", room, "\r");
    put("33.wld", QString(room).replace("|7 0 1", "|* warm|7 0 1"));
    mkfifo(dir_.filePath("pipe.wld"));
    QDir(out_.path()).removeRecursively();
    QDir(out_.path()).mkpath("30.obj/inside"); // in the way of a rewritten object file
    // A pipe in the way of a rewritten file, and pipes named as the new files
    // of a save were once named: none is waited on.
    for (const char* name : {"31.wld", "30.wld.marl-new", ".30.wld.marl-new", ".30.mob.marl-"})
        mkfifo(out_.filePath(name));
}

void MarlCheckTest::runs_data() {
    // The output's lines joined by |; `*` at its end: how the output begins.
    test::columns<QString, int, QString, QString, QStringList>(
        {"arguments", "status", "out", "err", "written"});
    // clang-format off
    QTest::newRow("one of each kind") << "30.wld 30.mob 30.obj" << 0
        << "30.wld: 1 room|30.mob: 2 mobiles|30.obj: 1 object" << "" << QStringList{};
    QTest::newRow("zone files: commands, the line refused, an older header") << "30.zon 31.zon 32.zon" << 1
        << "30.zon: 2 commands|31.zon:3: the bottom VNum 3100 is above the top VNum 3099|32.zon: 2 commands|"
           "32.zon:3: three numbers, without the bottom VNum (an older file): kept as they are, though "
           "this server reads four" << "" << QStringList{};
    QTest::newRow("rewrite a zone file") << "--rewrite OUT 30.zon" << 0
        << "30.zon: 2 commands, written to OUT/30.zon" << "" << QStringList{"30.zon"};
    QTest::newRow("a name without a zone is checked") << "castle.wld" << 0 << "castle.wld: 1 room" << ""
        << QStringList{};
    QTest::newRow("a refused file: its line and what was expected") << "31.mob 30.obj" << 1
        << "31.mob:8: expected the gold line \"<gold> <xp>\"|30.obj: 1 object" << "" << QStringList{};
    // The server only logs records out of number order (and misses some).
    QTest::newRow("records out of order: the record at fault") << "order.mob 30.wld" << 0
        << "order.mob: 2 mobiles|order.mob:10: #1 is out of number order (after #2)|30.wld: 1 room"
        << "" << QStringList{};
    QTest::newRow("records out of order, strict") << "--strict order.mob" << 1
        << "order.mob: 2 mobiles|order.mob:10: #1 is out of number order (after #2)" << ""
        << QStringList{};
    QTest::newRow("what the editor cannot show: told after the count") << "33.wld" << 0
        << "33.wld: 1 room|33.wld:5: #3001 holds an empty or \"*\" line*" << "" << QStringList{};
    QTest::newRow("unknown extension") << "notes.txt" << 1
        << "notes.txt: not a zone file: the name must end in .wld, .mob, .obj or .zon" << "" << QStringList{};
    QTest::newRow("missing file") << "32.wld" << 1
        << "32.wld: cannot read the file: No such file or directory" << "" << QStringList{};
    QTest::newRow("a folder") << "sub.wld" << 1 << "sub.wld: cannot read the file: Is a directory" << ""
        << QStringList{};
    QTest::newRow("rewrite") << "--rewrite OUT 030.wld 30.mob" << 0
        << "030.wld: 1 room, written to OUT/030.wld|30.mob: 2 mobiles, written to OUT/30.mob" << ""
        << QStringList{"030.wld", "30.mob"};
    QTest::newRow("rewrite: a name without a zone number") << "--rewrite OUT castle.wld 30.wld" << 1
        << "castle.wld: the name does not begin with a zone number (such as 30.wld), so it cannot be "
           "written|30.wld: 1 room, written to OUT/30.wld" << "" << QStringList{"30.wld"};
    QTest::newRow("rewrite: a refused file is not written") << "--rewrite OUT 31.mob 30.mob" << 1
        << "31.mob:8: expected the gold line \"<gold> <xp>\"|30.mob: 2 mobiles, written to OUT/30.mob"
        << "" << QStringList{"30.mob"};
    QTest::newRow("rewrite: a file that cannot be written") << "--rewrite=OUT 30.obj" << 1
        << "30.obj: 1 object; cannot write OUT/30.obj: Is a directory" << "" << QStringList{};
    QTest::newRow("a pipe as input is refused, not waited on") << "pipe.wld 30.wld" << 1
        << "pipe.wld: cannot read the file: not a regular file but a named pipe (FIFO)|30.wld: 1 room"
        << "" << QStringList{};
    QTest::newRow("a pipe as the file to write is refused, not waited on") << "--rewrite OUT 31.wld" << 1
        << "31.wld: 1 room; cannot write OUT/31.wld: not a regular file but a named pipe (FIFO)" << ""
        << QStringList{};
    QTest::newRow("headers the server refuses") << "neg.wld pair.obj big.mob 30.wld" << 1
        << "neg.wld:1: -5: a vnum cannot be negative|pair.obj:1: +-3099: two signs before a vnum|"
           "big.mob:1: 99999999999: too large for a vnum|30.wld: 1 room" << "" << QStringList{};
    QTest::newRow("CR-only line ends") << "mac.wld" << 1
        << "mac.wld:1: the line ends are not understood: lines end in CR alone (an old Mac file); "
           "save it with LF or CR LF line ends" << "" << QStringList{};
    QTest::newRow("rewrite: two inputs of one name") << "--rewrite OUT 30.wld 30.mob other/30.wld" << 2
        << "" << "marl-check: 30.wld and other/30.wld have the same name: --rewrite would write one "
                 "over the other" << QStringList{};
    QTest::newRow("two inputs of one name, only checked") << "30.wld other/30.wld" << 0
        << "30.wld: 1 room|other/30.wld: 1 room" << "" << QStringList{};
    QTest::newRow("help") << "--help" << 0 << "Usage: marl-check [--strict] [--rewrite DIR] FILE...*" << ""
        << QStringList{};
    QTest::newRow("no file") << "" << 2 << "" << "marl-check: no zone file given" << QStringList{};
    QTest::newRow("unknown option") << "--fix 30.wld" << 2 << "" << "marl-check: unknown option --fix"
        << QStringList{};
    QTest::newRow("rewrite without a folder") << "30.wld --rewrite" << 2 << ""
        << "--rewrite needs a folder" << QStringList{};
    QTest::newRow("rewrite into a regular file") << "--rewrite 30.mob 30.wld" << 2 << ""
        << "--rewrite needs an existing folder, not '30.mob'" << QStringList{};
    QTest::newRow("a file named like an option after --") << "-- --help" << 1
        << "--help: not a zone file: the name must end in .wld, .mob, .obj or .zon" << "" << QStringList{};
    // clang-format on
}

void MarlCheckTest::runs() {
    QFETCH(QString, arguments);
    QFETCH(int, status);
    QFETCH(QString, out);
    QFETCH(QString, err);
    QFETCH(QStringList, written);
    arguments.replace("OUT", out_.path());
    const Run run = runCheck(arguments.split(' ', Qt::SkipEmptyParts), dir_.path());
    QCOMPARE(run.status, status);
    out.replace('|', '\n').replace("OUT", out_.path());
    if (out.endsWith('*'))
        QVERIFY2(run.out.startsWith(out.chopped(1)), qPrintable(run.out));
    else
        QCOMPARE(run.out, out.isEmpty() ? out : out + '\n');
    QVERIFY2(err.isEmpty() ? run.err.isEmpty() : run.err.contains(err), qPrintable(run.err));
    QCOMPARE(QDir(out_.path()).entryList(QDir::Files), written);
    // Each written as the editor's save writes it: the zone from the name
    // (030 is zone 30), the line ends from the file.
    for (const QString& name : written)
        QVERIFY2(test::readBytes(out_.filePath(name)) == test::rewritten(dir_.filePath(name)),
                 qPrintable(name));
}

void MarlCheckTest::wholeCorpus() {
    QStringList files;
    for (const char* extension : {".wld", ".mob", ".obj", ".zon"})
        files += test::corpusFiles(QString::fromLatin1(extension));
    if (files.isEmpty())
        QSKIP("the server's stock zone files are not at ../shared/corpus");
    QTemporaryDir out;
    const Run run = runCheck(QStringList{"--rewrite", out.path()} + files);
    QCOMPARE(run.status, 0);
    const QStringList lines = run.out.split('\n', Qt::SkipEmptyParts);
    QCOMPARE(lines.size(), files.size());
    for (qsizetype i = 0; i < files.size(); ++i) {
        // Each file with its count, written as the editor's writers write it.
        int count = 0;
        const std::string expected = test::rewritten(files[i], &count);
        QVERIFY2(lines[i].startsWith(QStringLiteral("%1: %2 ").arg(files[i]).arg(count)),
                 qPrintable(lines[i]));
        QVERIFY(test::readBytes(out.filePath(QFileInfo(files[i]).fileName())) == expected);
    }
}

void MarlCheckTest::reportThatCannotBeWritten_data() {
    QTest::addColumn<QString>("arguments");
    QTest::newRow("the report") << "30.wld";
    QTest::newRow("the help") << "--help";
}

void MarlCheckTest::reportThatCannotBeWritten() {
    // A report into a full disk: told on standard error, with status 3.
    QFETCH(QString, arguments);
    QProcess process;
    process.setWorkingDirectory(dir_.path());
    process.setStandardOutputFile(QStringLiteral("/dev/full"));
    process.start(QStringLiteral(MARL_CHECK_PATH), arguments.split(' '));
    QVERIFY(process.waitForFinished(30000));
    QCOMPARE(process.exitCode(), 3);
    QCOMPARE(QString::fromLatin1(process.readAllStandardError()),
             QStringLiteral("marl-check: cannot write the report: No space left on device\n"));
}

MARL_TEST_MAIN(MarlCheckTest)
#include "marl_check_test.moc"
