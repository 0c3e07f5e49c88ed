// marl-check run as a builder runs it, from outside: what it prints, its exit
// status, and the files --rewrite leaves.

#include "test_main.h"
#include "built_programs.h"

#include "../world/zone_files.h"

#include <QProcess>

#include <sys/stat.h>

using namespace marl;

namespace {

// marl-check's status (-1: it did not end), standard output and error.
std::tuple<int, QString, QString> runCheck(const QStringList& arguments, const QString& workDir, const QString& outFile = {}) {
    QProcess process;
    process.setWorkingDirectory(workDir);
    if (!outFile.isEmpty())
        process.setStandardOutputFile(outFile);
    process.start(QStringLiteral(MARL_CHECK_PATH), arguments);
    if (!process.waitForFinished(30000) || process.exitStatus() != QProcess::NormalExit)
        return {-1, {}, {}};
    return {process.exitCode(), QString::fromLatin1(process.readAllStandardOutput()),
            QString::fromLatin1(process.readAllStandardError())};
}

} // namespace

class MarlCheckTest : public QObject {
    Q_OBJECT
    QTemporaryDir dir_;
    QTemporaryDir out_; // the folder of --rewrite, OUT in the rows

private slots:
    void init() {
        auto put = [this](const char* name, const QString& file, const char* eol = "\n") {
            test::writeBytes(dir_.filePath(name), test::lines(file, eol));
        };
        const QString room = "#3001|Bakery~|Warm.|~|7 0 1|S|$";
        const QString mobile = "#1|a~|b~|~|~|0 0 0 S|1 2 3 1d1+1 1d1+1|0 0|8 8 0|";
        QDir(dir_.path()).mkpath("other");
        for (const char* name : {"30.wld", "030.wld", "castle.wld", "31.wld", "other/30.wld"})
            put(name, room);
        put("30.mob", mobile + QString(mobile).replace("S|", "E|").replace("#1", "#2") + "Str: 18|E|$");
        put("31.mob", QString(mobile).replace("0 0|8", "5OO 0|8") + "$");
        put("30.obj", "#1|a~|b~|c~|~|1 0 a|0 0 0 0|0 0 0|A|1 2|$", "\r\n");
        put("order.mob", QString(mobile).replace("#1", "#2") + mobile + "$");
        put("33.wld", QString(room).replace("|7 0 1", "|* warm|7 0 1"));
        // What the server refuses: a seventh affect, a text of 8192 bytes as it
        // reads it (99 lines of 80 and one of 72, each line a byte longer read);
        // one below each passes.  And what it only logs.
        const QString affect = "A|1 2|";
        put("affects.obj", "#1|a~|b~|c~|~|1 0 a|0 0 0 0|0 0 0|" + affect.repeated(6) +
                               "#2|a~|b~|c~|~|1 0 a|0 0 0 0|0 0 0|" + affect.repeated(7) + "$");
        const QString lines = QString(80, 'x').append('|').repeated(99);
        put("long.wld", "#3001|A~|" + lines + QString(71, 'y') + "|~|7 0 1|S|#3002|B~|" + lines +
                            QString(72, 'y') + "|~|7 0 1|S|$");
        put("logged.obj", "#1|flask water~|b~|c~|~|17 0 a|5 9 0 0|1 0 -2|$");
        const QString zone = "#30|Zone~|3000 3099 15 2|* wizard|M 0 3000 1 3001 wizard|S|$";
        put("30.zon", zone);
        put("31.zon", QString(zone).replace("3000 3099", "3100 3099"));
        put("32.zon", QString(zone).replace("3000 3099", "3099"));
        const QString shop = "CircleMUD v3.0 Shop File~|#1~|3050|-1|1.1|0.9|WEAPON|-1|a~|b~|c~|d~|e~|"
                             "%s f %d~|%s g %d~|0|2|3000|4|3001|-1|0|28|0|0|$~";
        put("30.shp", shop, "\r\n");
        put("bad.shp", QString(shop).replace("$~", "$"));
        put("logged.shp", QString(shop).replace("a~", "%s %s a~").replace("0.9", "1.2").replace("28", "30"));
        put("neg.wld", QString(room).replace("#3001", "#-5"));
        put("mac.wld", room, "\r");
        QDir(dir_.path()).mkpath("world");
        put("world/30.zon", zone);
        put("world/30.wld", room);
        put("world/30.mob", mobile + "$");
        put("world/30.obj", "#1|a~|b~|c~|~|1 0 a|0 0 0 0|0 0 0|$");
        QDir(out_.path()).removeRecursively();
        QDir(out_.path()).mkpath("30.obj/inside"); // in the way of a rewritten object file
        // Pipes as input, in the way of a rewritten file and named as the new
        // files of a save were once named: none is waited on.
        for (const QString& pipe : {dir_.filePath("pipe.wld"), out_.filePath("31.wld"),
                                    out_.filePath("30.wld.marl-new"), out_.filePath(".30.mob.marl-")}) {
            QFile::remove(pipe);
            QVERIFY(::mkfifo(pipe.toLocal8Bit().constData(), 0644) == 0);
        }
    }

    void runs_data() {
        // The output's lines joined by |; `*` at its end: how the output begins.
        test::columns<QString, int, QString, QString, QStringList>({"arguments", "status", "out", "err", "written"});
        const QStringList none;
        // clang-format off
        QTest::newRow("one of each kind") << "30.wld 30.mob 30.obj castle.wld" << 0
            << "30.wld: 1 room|30.mob: 2 mobiles|30.obj: 1 object|castle.wld: 1 room" << "" << none;
        QTest::newRow("refused, missing, not a zone file, a pipe") << "31.mob 32.wld notes.txt pipe.wld neg.wld mac.wld" << 1
            << "31.mob:8: expected the gold line \"<gold> <xp>\"|32.wld: cannot read the file: No such file or directory|"
               "notes.txt: not a zone file: the name must end in .wld, .mob, .obj, .zon or .shp|"
               "pipe.wld: cannot read the file: not a regular file but a named pipe (FIFO)|"
               "neg.wld:1: -5: a vnum cannot be negative|mac.wld:1: the line ends are not understood: lines end in CR "
               "alone (an old Mac file); save it with LF or CR LF line ends" << "" << none;
        // The server only logs records out of number order; the editor shows
        // a line the server passes over inside a record only when told.
        QTest::newRow("out of order, and what the editor cannot show") << "order.mob 33.wld" << 0
            << "order.mob: 2 mobiles|order.mob:10: #1 is out of number order (after #2) (the server logs it)|33.wld: 1 room|"
               "33.wld:5: #3001 holds an empty or \"*\" line*" << "" << none;
        QTest::newRow("out of order, strict") << "--strict order.mob" << 1
            << "order.mob: 2 mobiles|order.mob:10: #1 is out of number order (after #2) (the server logs it)" << "" << none;
        QTest::newRow("more than six affects stop the boot") << "affects.obj" << 1
            << "affects.obj: 2 objects|affects.obj:21: object 2: 7 affects; the server takes at most 6 "
               "(the server stops booting)" << "" << QStringList{};
        QTest::newRow("a text past the server's limit stops the boot") << "long.wld" << 1
            << "long.wld: 2 rooms|long.wld:106: room 3002: the description is 8192 bytes as the server "
               "reads it; it reads at most 8191 (the server stops booting)" << "" << QStringList{};
        QTest::newRow("what the server only logs") << "logged.obj" << 0
            << "logged.obj: 1 object|logged.obj:1: object 1: negative rent per day (-2) (the server logs "
               "it)|logged.obj:1: object 1: holds 9 while its capacity is 5 (the server logs it)" << ""
            << QStringList{};
        QTest::newRow("what the server only logs, strict") << "--strict logged.obj" << 1
            << "logged.obj: 1 object*" << "" << QStringList{};
        QTest::newRow("zone files: commands, the line refused, an older header") << "30.zon 31.zon 32.zon" << 1
            << "30.zon: 2 commands|31.zon:3: the bottom VNum 3100 is above the top VNum 3099|32.zon: 2 commands|"
               "32.zon:3: three numbers, without the bottom VNum (an older file): kept as they are, though "
               "this server reads four" << "" << QStringList{};
        QTest::newRow("shop files: shops, the line refused") << "30.shp bad.shp" << 1
            << "30.shp: 1 shop|bad.shp:26: expected a shop \"#<number>~\" or the end of the file \"$~\"" << "" << none;
        QTest::newRow("a shop's findings at their fields' lines") << "logged.shp" << 0
            << "logged.shp: 1 shop|logged.shp:9: shop 1: The message when the keeper has no such item has two %s; the "
               "server drops it (the server logs it)|logged.shp:6: shop 1: The selling price factor 1.2 is above the "
               "buying one 1.1: players earn money by buying and selling back (the server accepts it)|logged.shp:23: "
               "shop 1: The first closing hour 30 is outside 0-28 (the server accepts it)" << "" << none;
        QTest::newRow("a shop's findings, strict") << "--strict logged.shp" << 1 << "logged.shp: 1 shop*" << "" << none;
        QTest::newRow("rewrite a shop file") << "--rewrite OUT 30.shp" << 0
            << "30.shp: 1 shop, written to OUT/30.shp" << "" << QStringList{"30.shp"};
        QTest::newRow("rewrite a zone file") << "--rewrite OUT 30.zon" << 0
            << "30.zon: 2 commands, written to OUT/30.zon" << "" << QStringList{"30.zon"};
        QTest::newRow("rewrite") << "--rewrite OUT 030.wld 30.mob" << 0
            << "030.wld: 1 room, written to OUT/030.wld|30.mob: 2 mobiles, written to OUT/30.mob" << ""
            << QStringList{"030.wld", "30.mob"};
        QTest::newRow("rewrite: what cannot be written") << "--rewrite=OUT castle.wld 31.mob 30.obj 31.wld 30.wld" << 1
            << "castle.wld: the name does not begin with a zone number (such as 30.wld), so it cannot be written|"
               "31.mob:8: expected the gold line \"<gold> <xp>\"|30.obj: 1 object; cannot write OUT/30.obj: Is a directory|"
               "31.wld: 1 room; cannot write OUT/31.wld: not a regular file but a named pipe (FIFO)|"
               "30.wld: 1 room, written to OUT/30.wld" << "" << QStringList{"30.wld"};
        QTest::newRow("rewrite: two inputs of one name") << "--rewrite OUT 30.wld other/30.wld" << 2 << ""
            << "marl-check: 30.wld and other/30.wld have the same name: --rewrite would write one over the other" << none;
        // A folder is a world: what the server's boot would find, file by file, and the counts.
        QTest::newRow("a world") << "world" << 0
            << "world: the server's start room for gods, room 1204, is not in the world [Immort start room does not exist] (the server logs it)|"
               "world: the server's start room for frozen players, room 1202, is not in the world [Frozen start room does not exist] (the server logs it)|"
               "world/30.zon:5: M names mobile 3000, which does not exist: the server disables the command [cmd disabled] (the server logs it)|"
               "world/30.mob:1: mobile 1 lies outside zone 30's range 3000-3099 (the server says nothing)|"
               "world/30.obj:1: object 1 lies outside zone 30's range 3000-3099 (the server says nothing)|"
               "world: 4 files, 1 zone, 1 room, 1 mobile, 1 object; 0 stop the boot, 3 logged, 0 logged when the game runs, 2 the server says nothing of" << "" << none;
        QTest::newRow("a world, strict") << "--strict --world world" << 1 << "world: the server's start room for gods*" << "" << none;
        QTest::newRow("a world is one folder") << "--world world 30.wld" << 2 << "" << "marl-check: a world is one folder, checked alone" << none;
        QTest::newRow("JSON is for a world") << "--json 30.wld" << 2 << "" << "marl-check: --json goes with a world folder" << none;
        QTest::newRow("help") << "--help" << 0 << "Usage: marl-check [--strict] [--rewrite DIR] FILE...*" << "" << none;
        QTest::newRow("no file") << "" << 2 << "" << "marl-check: no zone file given" << none;
        QTest::newRow("unknown option") << "--fix 30.wld" << 2 << "" << "marl-check: unknown option --fix" << none;
        QTest::newRow("rewrite without a folder") << "30.wld --rewrite" << 2 << "" << "--rewrite needs a folder" << none;
        QTest::newRow("a name like an option after --") << "-- --help" << 1
            << "--help: not a zone file: the name must end in .wld, .mob, .obj, .zon or .shp" << "" << none;
        // clang-format on
    }

    void runs() {
        QFETCH(QString, arguments);
        QFETCH(int, status);
        QFETCH(QString, out);
        QFETCH(QString, err);
        QFETCH(QStringList, written);
        const auto [ran, stdOut, stdErr] =
            runCheck(arguments.replace("OUT", out_.path()).split(' ', Qt::SkipEmptyParts), dir_.path());
        QCOMPARE(ran, status);
        out.replace('|', '\n').replace("OUT", out_.path());
        if (out.endsWith('*'))
            QVERIFY2(stdOut.startsWith(out.chopped(1)), qPrintable(stdOut));
        else
            QCOMPARE(stdOut, out.isEmpty() ? out : out + '\n');
        QVERIFY2(err.isEmpty() ? stdErr.isEmpty() : stdErr.contains(err), qPrintable(stdErr));
        QCOMPARE(QDir(out_.path()).entryList(QDir::Files), written);
        // Each written as the editor's save writes it: the zone from the name.
        for (const QString& name : written)
            QVERIFY2(test::readBytes(out_.filePath(name)) == test::rewritten(dir_.filePath(name)), qPrintable(name));
        // A report into a full disk is told on standard error, with status 3.
        if (status == 0)
            QCOMPARE(runCheck(arguments.split(' '), dir_.path(), "/dev/full"),
                     std::make_tuple(3, QString(), QString("marl-check: cannot write the report: No space left on device\n")));
    }
};

MARL_TEST_MAIN(MarlCheckTest)
#include "marl_check_test.moc"
