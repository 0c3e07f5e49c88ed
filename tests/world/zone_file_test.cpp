// Saving and reading whole zone files against links, pipes, devices and
// folders where a file should be, a failing disk, another owner.

#include "test_main.h"

#include "zone_files.h"

#include <future>
#include <thread>

#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;
using namespace marl;
using test::columns;

namespace {

constexpr std::string_view kNew = "#2\r\nNew~\r\n";

// A folder in one line, entries separated by blanks: `name=text` a file
// (`_` for a line break), `name>target` a link, `name|` a named pipe,
// `name/` a folder; names may have folders before them (`zones/30.wld=x`).
void build(const QString& root, const QString& layout) {
    for (const QString& entry : layout.split(' ', Qt::SkipEmptyParts)) {
        qsizetype at = entry.indexOf(QRegularExpression(QStringLiteral("[=>~]")));
        if (at < 0)
            at = entry.size() - 1; // `|` or `/` at the end
        const QString path = root + '/' + entry.left(at);
        QDir(root).mkpath(QFileInfo(path).path());
        if (entry[at] == '=')
            test::writeBytes(path, entry.mid(at + 1).replace('_', "\r\n").toStdString());
        else if (entry[at] == '~') { // a file of that size, sparse: 80M, 100G
            QFile file(path);
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write("#\n#\n") == 4);
            QVERIFY(file.resize(entry.mid(at + 1).chopped(1).toLongLong()
                                << (entry.endsWith('G') ? 30 : 20)));
        } else if (entry[at] == '>')
            fs::create_symlink(entry.mid(at + 1).toStdString(), path.toStdString());
        else if (entry[at] == '|')
            QVERIFY(::mkfifo(path.toLocal8Bit().constData(), 0644) == 0);
        else
            QDir(root).mkpath(entry.left(at));
    }
}

// The folder as `build` takes it, hidden entries included, in name order.
QString listing(const QString& root) {
    QMap<QString, QString> out;
    for (QDirIterator it(root, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories); it.hasNext();) {
        const std::string path = it.next().toStdString();
        const QString name = QDir(root).relativeFilePath(it.filePath());
        const fs::file_status status = fs::symlink_status(path);
        out[name] = fs::is_symlink(status) ? name + '>' + QString::fromStdString(fs::read_symlink(path).string())
                    : fs::is_fifo(status)   ? name + '|'
                    : fs::is_directory(status) ? name + '/'
                    : fs::file_size(path) > (1 << 20) ? name + '~' + QString::number(fs::file_size(path))
                    : name + '=' + QString::fromStdString(test::readBytes(it.filePath())).replace("\r\n", "_");
    }
    return QStringList(out.values()).join(' ');
}

// A save or a read, or nothing when it waited more than a few seconds (the
// call is left waiting; the test fails).  The error, or what was read.
std::optional<std::pair<bool, std::string>> within(bool saving, const QString& path,
                                                   std::string bytes = std::string(kNew)) {
    auto promise = std::make_shared<std::promise<std::pair<bool, std::string>>>();
    auto result = promise->get_future();
    std::thread([=, path = path.toStdString()]() mutable {
        std::string error, read;
        const bool ok = saving ? writeZoneFile(path, bytes, error) : readZoneFile(path, read, error);
        promise->set_value({ok, error + read});
    }).detach();
    if (result.wait_for(std::chrono::seconds(5)) != std::future_status::ready)
        return std::nullopt;
    return result.get();
}

std::pair<SaveStep, int> failing; // the step that fails, and how
int failStep(SaveStep step) { return step == failing.first ? failing.second : 0; }

} // namespace

class ZoneFileTest : public QObject {
    Q_OBJECT
private slots:
    void cleanup() { setSaveFault(nullptr); }
    void saveOrRead_data() {
        // The folder before, the file saved with the text New or read, the error
        // or what was read, the folder after (`=`: as before).
        columns<QString, QString, QString, QString>({"before", "path", "result", "after"});
        const QString pipe = "not a regular file but a named pipe (FIFO)";
        // clang-format off
        QTest::newRow("save a new file") << "" << "30.wld" << "" << "30.wld=#2_New~_";
        QTest::newRow("save: links beside the target, hidden or not, are never followed")
            << "30.wld=x 30.wld.marl-new>victim .30.wld.marl-new>victim .30.wld.marl->victim victim=precious" << "30.wld" << ""
            << ".30.wld.marl->victim .30.wld.marl-new>victim 30.wld=#2_New~_ 30.wld.marl-new>victim victim=precious";
        QTest::newRow("save: a leftover pipe beside the target is not waited on")
            << "30.wld=x .30.wld.marl-new| 30.wld.marl-new|" << "30.wld" << ""
            << ".30.wld.marl-new| 30.wld=#2_New~_ 30.wld.marl-new|";
        QTest::newRow("save through a link: its file is written, the link stays")
            << "30.wld>zones/30.wld zones/30.wld=#1_Old~_" << "30.wld" << "" << "30.wld>zones/30.wld zones/ zones/30.wld=#2_New~_";
        QTest::newRow("save through a chain of relative links to a missing file")
            << "30.wld>a/b.wld a/b.wld>../c/30.wld c/" << "30.wld" << "" << "30.wld>a/b.wld a/ a/b.wld>../c/30.wld c/ c/30.wld=#2_New~_";
        QTest::newRow("save: links in a loop") << "30.wld>a.wld a.wld>30.wld" << "30.wld" << "Too many levels of symbolic links" << "=";
        QTest::newRow("save: a link to a pipe is refused, not waited on") << "30.wld>p p|" << "30.wld" << pipe << "=";
        QTest::newRow("save: a folder") << "30.wld/" << "30.wld" << "Is a directory" << "=";
        QTest::newRow("read a file") << "30.wld=#1_Old~_" << "<30.wld" << "#1\r\nOld~\r\n" << "=";
        QTest::newRow("read: a pipe is refused, not waited on") << "30.wld|" << "<30.wld" << pipe << "=";
        QTest::newRow("read: a device") << "" << "</dev/zero" << "not a regular file but a device" << "=";
        // Larger than any zone: refused before a byte is read.
        QTest::newRow("read: 80 MB of # lines") << "30.wld~80M" << "<30.wld"
            << "the file is larger than any zone file (more than 64 MB), so it is not read" << "=";
        QTest::newRow("read: 100 GB, sparse") << "30.wld~100G" << "<30.wld"
            << "the file is larger than any zone file (more than 64 MB), so it is not read" << "=";
        QTest::newRow("read: a dangling link") << "30.wld>gone" << "<30.wld" << "No such file or directory" << "=";
        // clang-format on
    }

    void saveOrRead() {
        QFETCH(QString, before);
        QFETCH(QString, path);
        QFETCH(QString, result);
        QFETCH(QString, after);
        QTemporaryDir dir;
        build(dir.path(), before);
        const QString was = listing(dir.path());
        const bool saving = !path.startsWith('<');
        path = saving ? dir.filePath(path) : path.mid(1).startsWith('/') ? path.mid(1) : dir.filePath(path.mid(1));
        const auto outcome = within(saving, path);
        QVERIFY2(outcome, "the call waited");
        QCOMPARE(QString::fromStdString(outcome->second), result);
        if (saving)
            QCOMPARE(outcome->first, result.isEmpty());
        QCOMPARE(listing(dir.path()), after == "=" ? was : after);
    }

    // Each step of the save failing as a disk would, for an old file and for a
    // new one: the save fails with the system's reason, the old file is as it
    // was and no new file is left beside it; with the disk well again it saves.
    void failingDisk() {
        const std::tuple<SaveStep, int, const char*> steps[] = {{SaveStep::Write, ENOSPC, "No space left on device"},
            {SaveStep::Sync, EIO, "Input/output error"}, {SaveStep::Rename, EXDEV, "Invalid cross-device link"}};
        for (const auto& [step, code, error] : steps)
            for (const char* before : {"30.wld=#1_Old~_ other=x", "other=x"}) {
                QTemporaryDir dir;
                build(dir.path(), before);
                failing = {step, code};
                setSaveFault(failStep);
                const auto outcome = within(true, dir.filePath("30.wld"), std::string(100000, 'x'));
                QVERIFY(outcome && !outcome->first);
                QCOMPARE(outcome->second, std::string(error));
                QCOMPARE(listing(dir.path()), QString(before));
                setSaveFault(nullptr);
                QVERIFY(within(true, dir.filePath("30.wld"))->first);
            }
    }

    // A saved file is replaced, not written in place, and keeps its mode, owner
    // and group (another owner: only when run as root).
    void keepsOwnerAndMode() {
        const std::tuple<int, int, int> rows[] = {{0755, -1, -1}, {0602, -1, -1}, {0664, 1234, 5678}};
        for (const auto& [mode, owner, group] : rows) {
            if (owner >= 0 && ::geteuid() != 0)
                continue;
            QTemporaryDir dir;
            const QByteArray name = dir.filePath("30.wld").toLocal8Bit();
            test::writeBytes(dir.filePath("30.wld"), "#1\r\n");
            QVERIFY(::chmod(name, mode_t(mode)) == 0 && ::chown(name, uid_t(owner), gid_t(group)) == 0);
            struct stat before {}, after {};
            QVERIFY(::stat(name, &before) == 0);
            QVERIFY(within(true, dir.filePath("30.wld"))->first);
            QVERIFY(::stat(name, &after) == 0);
            QCOMPARE(after.st_mode & 07777, before.st_mode & 07777);
            QCOMPARE(after.st_uid, before.st_uid);
            QCOMPARE(after.st_gid, before.st_gid);
            QVERIFY(after.st_ino != before.st_ino);
        }
    }
};

MARL_TEST_MAIN(ZoneFileTest)
#include "zone_file_test.moc"
