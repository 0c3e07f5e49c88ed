// marl-check run as a builder runs it, from outside: what it prints, its exit
// status, and the files --rewrite leaves.

#include <QtTest>

#include <QProcess>

#include "mobiles/mobile_file.h"
#include "objects/object_file.h"
#include "rooms/room_file.h"
#include "test_support.h"

using namespace marl;

namespace {

struct Run {
    int status = -1;
    QString out;
    QString err;
};

Run runCheck(const QStringList& arguments, const QString& workDir = QString()) {
    QProcess process;
    if (!workDir.isEmpty())
        process.setWorkingDirectory(workDir);
    process.start(QStringLiteral(MARL_CHECK_PATH), arguments);
    Run run;
    if (!process.waitForFinished(30000) || process.exitStatus() != QProcess::NormalExit)
        return run;
    run.status = process.exitCode();
    run.out = QString::fromLatin1(process.readAllStandardOutput());
    run.err = QString::fromLatin1(process.readAllStandardError());
    return run;
}

const std::string kRoom = test::lf({"#3001", "Bakery~", "Warm.", "~", "7 0 1", "S", "$"});
const std::string kTwoMobiles =
    test::lf({"#1",      "a~", "b~", "~", "~", "0 0 0 S", "1 2 3 1d1+1 1d1+1", "0 0", "8 8 0",
              "#2",      "a~", "b~", "~", "~", "0 0 0 E", "1 2 3 1d1+1 1d1+1", "0 0", "8 8 0",
              "Str: 18", "E",  "$"});
const std::string kObject =
    test::crlf({"#1", "a~", "b~", "c~", "~", "1 0 a", "0 0 0 0", "0 0 0", "A", "1 2", "$"});

} // namespace

class MarlCheckTest : public QObject {
    Q_OBJECT
private slots:
    void init();
    void reportsEachFile_data();
    void reportsEachFile();
    void rewriteWritesAsTheEditorSaves();
    void rewriteRefusals_data();
    void rewriteRefusals();
    void usage_data();
    void usage();
    void wholeCorpus();

private:
    QTemporaryDir dir_;
    QString path(const QString& name) const { return dir_.filePath(name); }
};

void MarlCheckTest::init() {
    test::writeBytes(path("30.wld"), kRoom);
    test::writeBytes(path("30.mob"), kTwoMobiles);
    test::writeBytes(path("30.obj"), kObject);
    test::writeBytes(path("31.mob"), test::lf({"#1", "a~", "b~", "~", "~", "0 0 0 S",
                                               "1 2 3 1d1+1 1d1+1", "5OO 0", "8 8 0", "$"}));
    test::writeBytes(path("castle.wld"), kRoom);
    test::writeBytes(path("notes.txt"), "hello\n");
}

void MarlCheckTest::reportsEachFile_data() {
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<int>("status");
    QTest::addColumn<QStringList>("lines");

    QTest::newRow("one of each kind")
        << QStringList{"30.wld", "30.mob", "30.obj"} << 0
        << QStringList{"30.wld: 1 room", "30.mob: 2 mobiles", "30.obj: 1 object"};
    QTest::newRow("a name without a zone is checked all the same")
        << QStringList{"castle.wld"} << 0 << QStringList{"castle.wld: 1 room"};
    QTest::newRow("a refused file names its line and what was expected")
        << QStringList{"30.wld", "31.mob", "30.obj"} << 1
        << QStringList{"30.wld: 1 room", "31.mob:8: expected the gold line \"<gold> <xp>\"",
                       "30.obj: 1 object"};
    QTest::newRow("unknown extension")
        << QStringList{"notes.txt"} << 1
        << QStringList{"notes.txt: not a zone file: the name must end in .wld, .mob or .obj"};
    QTest::newRow("missing file") << QStringList{"32.wld"} << 1
                                  << QStringList{
                                         "32.wld: cannot read the file: No such file or directory"};
    QTest::newRow("a folder") << QStringList{"sub.wld"} << 1
                              << QStringList{"sub.wld: cannot read the file: Is a directory"};
}

void MarlCheckTest::reportsEachFile() {
    QFETCH(QStringList, files);
    QFETCH(int, status);
    QFETCH(QStringList, lines);
    QVERIFY(QDir(dir_.path()).mkpath("sub.wld"));
    const Run run = runCheck(files, dir_.path());
    QCOMPARE(run.out, lines.join('\n') + '\n');
    QCOMPARE(run.status, status);
}

void MarlCheckTest::rewriteWritesAsTheEditorSaves() {
    QTemporaryDir out;
    test::writeBytes(path("030.wld"), kRoom);
    test::writeBytes(out.filePath("30.mob"), "an older file, replaced");
    const Run run = runCheck({"--rewrite", out.path(), "030.wld", "30.mob", "30.obj"}, dir_.path());
    QCOMPARE(run.status, 0);
    QCOMPARE(run.out, QStringLiteral("030.wld: 1 room, written to %1/030.wld\n"
                                     "30.mob: 2 mobiles, written to %1/30.mob\n"
                                     "30.obj: 1 object, written to %1/30.obj\n")
                          .arg(out.path()));

    // The zone comes from the name, the line ends from the file.
    QCOMPARE(test::readBytes(out.filePath("030.wld")),
             test::lf({"#3001", "Bakery~", "Warm.", "~", "30 0 1", "S", "$"}));
    MobileTable mobiles;
    const int count = readMobiles(kTwoMobiles, mobiles);
    QCOMPARE(test::readBytes(out.filePath("30.mob")), writeMobiles(mobiles, count));
    QCOMPARE(test::readBytes(out.filePath("30.obj")), kObject);
    QCOMPARE(QDir(out.path()).entryList(QDir::Files), (QStringList{"030.wld", "30.mob", "30.obj"}));
}

void MarlCheckTest::rewriteRefusals_data() {
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QStringList>("written");

    QTest::newRow("a name without a zone number")
        << QStringList{"castle.wld", "30.wld"}
        << QStringList{"castle.wld: the name does not begin with a zone number (such as 30.wld), "
                       "so "
                       "it cannot be written",
                       "30.wld: 1 room, written to OUT/30.wld"}
        << QStringList{"30.wld"};
    QTest::newRow("a refused file is not written")
        << QStringList{"31.mob", "30.mob"}
        << QStringList{"31.mob:8: expected the gold line \"<gold> <xp>\"",
                       "30.mob: 2 mobiles, written to OUT/30.mob"}
        << QStringList{"30.mob"};
    QTest::newRow("a file that cannot be written")
        << QStringList{"30.obj", "30.wld"}
        << QStringList{"30.obj: 1 object; cannot write OUT/30.obj: Is a directory",
                       "30.wld: 1 room, written to OUT/30.wld"}
        << QStringList{"30.wld"};
}

void MarlCheckTest::rewriteRefusals() {
    QFETCH(QStringList, files);
    QFETCH(QStringList, lines);
    QFETCH(QStringList, written);
    QTemporaryDir out;
    QVERIFY(QDir(out.path()).mkpath("30.obj/inside")); // in the way of the object file
    const Run run = runCheck(QStringList{"--rewrite", out.path()} + files, dir_.path());
    QCOMPARE(run.status, 1);
    QCOMPARE(run.out, lines.join('\n').replace("OUT", out.path()) + '\n');
    QCOMPARE(QDir(out.path()).entryList(QDir::Files), written);
    QVERIFY(QFileInfo(out.filePath("30.obj/inside")).isDir());
}

void MarlCheckTest::usage_data() {
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("out");
    QTest::addColumn<QString>("err");
    QTest::newRow("help") << QStringList{"--help"} << 0
                          << "Usage: marl-check [--rewrite DIR] FILE..."
                          << "";
    QTest::newRow("no file") << QStringList{} << 2 << ""
                             << "marl-check: no zone file given";
    QTest::newRow("unknown option") << QStringList{"--fix", "30.wld"} << 2 << ""
                                    << "marl-check: unknown option --fix";
    QTest::newRow("rewrite without a folder") << QStringList{"30.wld", "--rewrite"} << 2 << ""
                                              << "--rewrite needs a folder";
    QTest::newRow("rewrite into a regular file")
        << QStringList{"--rewrite", "30.mob", "30.wld"} << 2 << ""
        << "--rewrite needs an existing folder, not '30.mob'";
    QTest::newRow("a file named like an option after --")
        << QStringList{"--", "--help"} << 1 << "--help: not a zone file"
        << "";
}

void MarlCheckTest::usage() {
    QFETCH(QStringList, arguments);
    QFETCH(int, status);
    QFETCH(QString, out);
    QFETCH(QString, err);
    const Run run = runCheck(arguments, dir_.path());
    QCOMPARE(run.status, status);
    QVERIFY2(out.isEmpty() ? run.out.isEmpty() : run.out.startsWith(out), qPrintable(run.out));
    QVERIFY2(err.isEmpty() ? run.err.isEmpty() : run.err.contains(err), qPrintable(run.err));
}

void MarlCheckTest::wholeCorpus() {
    const QString corpus = test::corpusDir();
    if (corpus.isEmpty())
        QSKIP("the server's stock zone files are not at ../shared/corpus");
    QStringList files;
    for (const char* extension : {".wld", ".mob", ".obj"})
        files += test::corpusFiles(QString::fromLatin1(extension));
    QTemporaryDir out;
    const Run run = runCheck(QStringList{"--rewrite", out.path()} + files);
    QCOMPARE(run.status, 0);
    QCOMPARE(run.out.count('\n'), files.size());
    QVERIFY2(!run.out.contains("expected"), qPrintable(run.out));
    // What the tool wrote is what the editor's writers make of the file.
    for (const QString& file : files) {
        const std::string bytes = test::readBytes(file);
        const QString name = QFileInfo(file).fileName();
        std::string expected;
        if (name.endsWith(".wld")) {
            auto table = std::make_unique<RoomTable>();
            expected =
                writeRooms(*table, readRooms(bytes, *table), name.section('.', 0, 0).toInt());
        } else if (name.endsWith(".mob")) {
            auto table = std::make_unique<MobileTable>();
            expected = writeMobiles(*table, readMobiles(bytes, *table));
        } else {
            auto table = std::make_unique<ObjectTable>();
            expected = writeObjects(*table, readObjects(bytes, *table));
        }
        QVERIFY2(test::readBytes(out.filePath(name)) == expected, qPrintable(name));
    }
}

QTEST_GUILESS_MAIN(MarlCheckTest)
#include "marl_check_test.moc"
