// `cmake --install` into a temporary prefix: every file a desktop needs is
// there, the files agree with each other, the installed programs run, and
// the distribution's validators accept the desktop entry, the metainfo and
// the MIME definitions when they are installed.
#include "test_main.h"
#include "built_programs.h"

#include <QtTest>

#include <QImage>
#include <QSettings>
#include <QTemporaryDir>

namespace {

const QString kId = "org.marl_editor.Marl";
const QList<int> kIconSizes = {16, 24, 32, 48, 64, 128, 256};

struct Run {
    int status = -1;
    QString out;
};

Run run(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    Run result;
    if (!process.waitForFinished(120000) || process.exitStatus() != QProcess::NormalExit)
        return result;
    result.status = process.exitCode();
    result.out = QString::fromLocal8Bit(process.readAll());
    return result;
}

// The values of a desktop entry's keys, split at `;`.
QStringList desktopList(const QString& text, const QString& key) {
    for (const QString& line : text.split('\n'))
        if (line.startsWith(key + '='))
            return line.mid(key.size() + 1).split(';', Qt::SkipEmptyParts);
    return {};
}

} // namespace

class InstalledTreeTest : public QObject {
    Q_OBJECT
    QTemporaryDir prefix;

    QString installed(const QString& path) const { return QDir(prefix.path()).filePath(path); }

    QString read(const QString& path) const {
        QFile file(installed(path));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

private slots:
    void initTestCase() {
#if !defined(Q_OS_LINUX) && !defined(Q_OS_FREEBSD)
        QSKIP("the desktop files are installed on Linux and the BSDs only");
#endif
        QVERIFY(prefix.isValid());
        const Run install =
            run(CMAKE_COMMAND, {"--install", MARL_BINARY_DIR, "--prefix", prefix.path()});
        QVERIFY2(install.status == 0, qPrintable(install.out));
    }

    void everyFile_data() {
        QTest::addColumn<QString>("path");
        const QStringList files = {"bin/marl",
                                   "bin/marl-check",
                                   "share/applications/" + kId + ".desktop",
                                   "share/metainfo/" + kId + ".metainfo.xml",
                                   "share/mime/packages/" + kId + ".xml",
                                   "share/icons/hicolor/scalable/apps/" + kId + ".svg",
                                   "share/marl/examples/95.wld",
                                   "share/man/man1/marl.1.gz",
                                   "share/man/man1/marl-check.1.gz",
                                   "share/doc/marl/copyright",
                                   "share/doc/marl/changelog.gz"};
        for (const QString& file : files)
            QTest::newRow(qPrintable(file)) << file;
        for (int size : kIconSizes)
            QTest::newRow(qPrintable(QString("%1 px").arg(size)))
                << QStringLiteral("share/icons/hicolor/%1x%1/apps/%2.png").arg(size).arg(kId);
    }

    void everyFile() {
        QFETCH(QString, path);
        const QFileInfo file(installed(path));
        QVERIFY2(file.isFile() && file.size() > 0, qPrintable(path + " is missing"));
        if (path.startsWith("bin/"))
            QVERIFY(file.isExecutable());
        if (path.endsWith(".png")) {
            const int size = path.section('/', 3, 3).section('x', 0, 0).toInt();
            QCOMPARE(QImage(file.filePath()).size(), QSize(size, size));
        }
    }

    void nothingElseInstalled() {
        QStringList unexpected;
        QDirIterator it(prefix.path(), QDir::Files, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QString path = QDir(prefix.path()).relativeFilePath(it.next());
            if (!path.startsWith("share/icons/hicolor/") && !path.startsWith("share/marl/") &&
                !path.startsWith("share/doc/marl/") && !path.startsWith("share/man/man1/") &&
                !path.startsWith("bin/") && !path.contains(kId))
                unexpected << path;
        }
        QCOMPARE(unexpected, QStringList{});
    }

    // The entry starts the installed program with the files it is given, shows
    // an installed icon, and offers exactly the types the MIME file defines.
    void filesAgree() {
        const QString entry = read("share/applications/" + kId + ".desktop");
        QCOMPARE(desktopList(entry, "Exec"), QStringList{"marl %F"});
        QCOMPARE(desktopList(entry, "Icon"), QStringList{kId});
        QStringList defined;
        static const QRegularExpression type("<mime-type type=\"([^\"]+)\"");
        for (const auto& match : type.globalMatch(read("share/mime/packages/" + kId + ".xml")))
            defined << match.captured(1);
        QCOMPARE(desktopList(entry, "MimeType"), defined);
        const QString metainfo = read("share/metainfo/" + kId + ".metainfo.xml");
        QVERIFY(metainfo.contains("<launchable type=\"desktop-id\">" + kId + ".desktop<"));
        QVERIFY(metainfo.contains("<release version=\"0.3.1\""));
        QVERIFY(metainfo.contains("<screenshot type=\"default\">"));
    }

    void programsRun() {
        const Run version = run(installed("bin/marl"), {"--version"});
        QCOMPARE(version.status, 0);
        QCOMPARE(version.out, QStringLiteral("marl 0.3.1\n"));
        const Run check =
            run(installed("bin/marl-check"), {installed("share/marl/examples/95.wld")});
        QCOMPARE(check.status, 0);
        QVERIFY2(check.out.endsWith("95.wld: 5 rooms\n"), qPrintable(check.out));
    }

    void validators_data() {
        QTest::addColumn<QString>("tool");
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("desktop entry")
            << "desktop-file-validate"
            << QStringList{installed("share/applications/" + kId + ".desktop")};
        QTest::newRow("metainfo") << "appstreamcli"
                                  << QStringList{
                                         "validate", "--no-net", "--pedantic",
                                         installed("share/metainfo/" + kId + ".metainfo.xml")};
        // groff's warnings, as man prints them for a page it formats
        const QStringList man = {"--warnings", "-E", "UTF-8", "-l", "-Tutf8", "-Z"};
        for (const char* page : {"marl", "marl-check"})
            QTest::addRow("manual page %s", page)
                << "man"
                << man + QStringList{installed(QString("share/man/man1/%1.1.gz").arg(page))};
    }

    void validators() {
        QFETCH(QString, tool);
        QFETCH(QStringList, arguments);
        if (QStandardPaths::findExecutable(tool).isEmpty())
            QSKIP(qPrintable(tool + " is not installed"));
        const Run result = run(tool, arguments);
        QVERIFY2(result.status == 0, qPrintable(result.out));
        if (tool == "man") // groff's warnings go to the output
            QVERIFY2(!result.out.contains("warning"), qPrintable(result.out));
    }

    // The shared MIME database built from the installed definitions knows the
    // three kinds by their extensions, as kinds of plain text.
    void mimeDatabase() {
        if (QStandardPaths::findExecutable("update-mime-database").isEmpty())
            QSKIP("update-mime-database is not installed");
        const QString mime = installed("share/mime");
        const Run update = run("update-mime-database", {mime});
        QVERIFY2(update.status == 0 && !update.out.contains("rror"), qPrintable(update.out));
        const QString globs = read("share/mime/globs2");
        for (const char* line : {":text/x-circlemud-world:*.wld", ":text/x-circlemud-mobile:*.mob",
                                 ":text/x-circlemud-object:*.obj"})
            QVERIFY2(globs.contains(line), line);
        const QString subclasses = read("share/mime/subclasses");
        for (const char* type : {"world", "mobile", "object"})
            QVERIFY(
                subclasses.contains(QStringLiteral("text/x-circlemud-%1 text/plain").arg(type)));
    }
};

MARL_TEST_MAIN(InstalledTreeTest)
#include "installed_tree_test.moc"
