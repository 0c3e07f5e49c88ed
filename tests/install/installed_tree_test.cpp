// `cmake --install` into a temporary prefix: every file a desktop needs is
// there and nothing else, the files agree with each other, the installed
// programs run, and the distribution's validators accept the desktop entry,
// the metainfo, the manual pages and the MIME definitions when installed.
#include "test_main.h"
#include "built_programs.h"

#include <QtTest>

#include <QImage>
#include <QTemporaryDir>

#include "test_support.h"

namespace {

const QString kId = "org.marl_editor.Marl";

// The status (-1: it did not end) and the output of a program.
std::pair<int, QString> run(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    if (!process.waitForFinished(120000) || process.exitStatus() != QProcess::NormalExit)
        return {-1, {}};
    return {process.exitCode(), QString::fromLocal8Bit(process.readAll())};
}

} // namespace

class InstalledTreeTest : public QObject {
    Q_OBJECT
    QTemporaryDir prefix;

    QString installed(const QString& path) const { return QDir(prefix.path()).filePath(path); }
    QString read(const QString& path) const { return QString::fromStdString(marl::test::readBytes(installed(path))); }
    // A desktop entry key's values, split at `;`.
    QStringList entry(const QString& key) const {
        const QString text = read("share/applications/" + kId + ".desktop");
        return text.section('\n' + key + '=', 1, 1).section('\n', 0, 0).split(';', Qt::SkipEmptyParts);
    }

private slots:
    void initTestCase() {
#if !defined(Q_OS_LINUX) && !defined(Q_OS_FREEBSD)
        QSKIP("the desktop files are installed on Linux and the BSDs only");
#endif
        const auto [status, out] = run(CMAKE_COMMAND, {"--install", MARL_BINARY_DIR, "--prefix", prefix.path()});
        QVERIFY2(status == 0, qPrintable(out));
    }

    void everyFileAndNothingElse() {
        QStringList expected = {"bin/marl", "bin/marl-check", "share/applications/" + kId + ".desktop",
            "share/metainfo/" + kId + ".metainfo.xml", "share/mime/packages/" + kId + ".xml",
            "share/icons/hicolor/scalable/apps/" + kId + ".svg", "share/man/man1/marl.1.gz",
            "share/man/man1/marl-check.1.gz", "share/doc/marl/copyright", "share/doc/marl/changelog.gz"};
        for (int size : {16, 24, 32, 48, 64, 128, 256}) {
            expected << QStringLiteral("share/icons/hicolor/%1x%1/apps/%2.png").arg(size).arg(kId);
            QCOMPARE(QImage(installed(expected.last())).size(), QSize(size, size));
        }
        QStringList found;
        for (QDirIterator it(prefix.path(), QDir::Files, QDirIterator::Subdirectories); it.hasNext();)
            if (const QString path = QDir(prefix.path()).relativeFilePath(it.next()); !path.startsWith("share/marl/"))
                found << path;
        found.sort();
        expected.sort();
        QCOMPARE(found, expected);
        QVERIFY(QFileInfo(installed("bin/marl")).isExecutable() && QFileInfo(installed("bin/marl-check")).isExecutable());
    }

    // The entry starts the installed program with the files it is given,
    // shows an installed icon, and offers exactly the types the MIME file
    // defines; the installed programs run on the installed example.
    void filesAgreeAndProgramsRun() {
        QCOMPARE(entry("Exec"), QStringList{"marl %F"});
        QCOMPARE(entry("Icon"), QStringList{kId});
        QStringList defined;
        static const QRegularExpression type("<mime-type type=\"([^\"]+)\"");
        for (const auto& match : type.globalMatch(read("share/mime/packages/" + kId + ".xml")))
            defined << match.captured(1);
        QCOMPARE(entry("MimeType"), defined);
        QVERIFY(read("share/metainfo/" + kId + ".metainfo.xml").contains("<launchable type=\"desktop-id\">" + kId + ".desktop<"));
        QCOMPARE(run(installed("bin/marl"), {"--version"}), std::make_pair(0, QString("marl 0.3.1\n")));
        const auto [status, out] = run(installed("bin/marl-check"), {installed("share/marl/examples/95.wld")});
        QVERIFY2(status == 0 && out.endsWith("95.wld: 5 rooms\n"), qPrintable(out));
    }

    void validators() {
        const QStringList man = {"--warnings", "-E", "UTF-8", "-l", "-Tutf8", "-Z"}; // groff's warnings, as man prints them
        const std::pair<QString, QStringList> tools[] = {
            {"desktop-file-validate", {installed("share/applications/" + kId + ".desktop")}},
            {"appstreamcli", {"validate", "--no-net", "--pedantic", installed("share/metainfo/" + kId + ".metainfo.xml")}},
            {"man", man + QStringList{installed("share/man/man1/marl.1.gz")}},
            {"man", man + QStringList{installed("share/man/man1/marl-check.1.gz")}},
            {"update-mime-database", {installed("share/mime")}}}; // each when installed
        for (const auto& [tool, arguments] : tools) {
            const auto [status, out] = QStandardPaths::findExecutable(tool).isEmpty() ? std::pair(0, QString()) : run(tool, arguments);
            QVERIFY2(status == 0 && !out.contains(tool == "man" ? "warning" : tool.startsWith("update") ? "rror" : "\1"),
                     qPrintable(tool + ": " + out));
        }
    }
};

MARL_TEST_MAIN(InstalledTreeTest)
#include "installed_tree_test.moc"
