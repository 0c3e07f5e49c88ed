// Saving and reading whole zone files against what may stand in a folder:
// links planted or dangling, pipes, devices and folders where a file should
// be, a disk that fails part way, a file owned by someone else.  Each case
// is a folder described in one line, the save or read, and the folder after.

#include "test_main.h"

#include "zone_files.h"

#include <algorithm>
#include <chrono>
#include <future>
#include <thread>

#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;
using namespace marl;
using test::columns;

namespace {

constexpr std::string_view kOld = "#1\r\nOld~\r\n";
constexpr std::string_view kNew = "#2\r\nNew~\r\n";

// A folder in one line, entries separated by blanks: `name=text` a file
// (`_` for a line break), `name>target` a link, `name|` a named pipe,
// `name/` a folder, `name~80M` a file of `#` lines made that large without
// taking the disk (M or G); names may have folders before them.
void build(const QString& root, const QString& spec) {
    for (const QString& entry : spec.split(' ', Qt::SkipEmptyParts)) {
        qsizetype at = entry.indexOf(QRegularExpression(QStringLiteral("[=>~]")));
        if (at < 0)
            at = entry.size() - 1; // `|` or `/` at the end
        const QString name = entry.left(at);
        const QString path = root + '/' + name;
        QDir(root).mkpath(QFileInfo(path).path());
        const QChar kind = entry[at];
        if (kind == '=')
            test::writeBytes(path, entry.mid(at + 1).replace('_', "\r\n").toStdString());
        else if (kind == '~') {
            QFile file(path);
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write("#\n#\n") == 4);
            const qint64 size = entry.mid(at + 1).chopped(1).toLongLong()
                                << (entry.endsWith('G') ? 30 : 20);
            QVERIFY(file.resize(size));
        } else if (kind == '>')
            fs::create_symlink(entry.mid(at + 1).toStdString(), path.toStdString());
        else if (kind == '|')
            QVERIFY(::mkfifo(path.toLocal8Bit().constData(), 0644) == 0);
        else
            QDir(root).mkpath(name);
    }
}

// The folder described as `build` takes it, hidden entries included and
// entries in name order, so that a new file left behind shows.
QString listing(const QString& root, const QString& prefix = QString()) {
    QStringList out;
    QFileInfoList entries = QDir(root).entryInfoList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::NoSort);
    std::sort(entries.begin(), entries.end(),
              [](const QFileInfo& a, const QFileInfo& b) { return a.fileName() < b.fileName(); });
    for (const QFileInfo& info : entries) {
        const QString name = prefix + info.fileName();
        const fs::path path = info.filePath().toStdString();
        const fs::file_status status = fs::symlink_status(path);
        if (fs::is_symlink(status))
            out += name + '>' + QString::fromStdString(fs::read_symlink(path).string());
        else if (fs::is_fifo(status))
            out += name + '|';
        else if (fs::is_directory(status))
            out +=
                QStringList{name + '/', listing(info.filePath(), name + '/')}.join(' ').trimmed();
        else
            out += name + '=' +
                   QString::fromStdString(test::readBytes(info.filePath()))
                       .replace(QStringLiteral("\r\n"), QStringLiteral("_"));
    }
    return out.join(' ');
}

// What a call that might wait forever gave, or nothing when it took longer
// than a few seconds (the call is left waiting; the test fails).
struct Outcome {
    bool ok = false;
    std::string error;
};
template <typename Call> std::optional<Outcome> within(Call call) {
    auto promise = std::make_shared<std::promise<Outcome>>();
    std::future<Outcome> result = promise->get_future();
    std::thread([promise, call] { promise->set_value(call()); }).detach();
    if (result.wait_for(std::chrono::seconds(5)) != std::future_status::ready)
        return std::nullopt;
    return result.get();
}

std::optional<Outcome> save(const QString& path, std::string_view bytes = kNew) {
    return within([path = path.toStdString(), bytes = std::string(bytes)] {
        Outcome out;
        out.ok = writeZoneFile(path, bytes, out.error);
        return out;
    });
}

std::optional<Outcome> load(const QString& path) {
    return within([path = path.toStdString()] {
        Outcome out;
        std::string bytes;
        out.ok = readZoneFile(path, bytes, out.error);
        out.error += bytes;
        return out;
    });
}

// The step that is to fail, and how; the hook is a plain function.
SaveStep failingStep = SaveStep::Write;
int failingWith = 0;
int failStep(SaveStep step) {
    return step == failingStep ? failingWith : 0;
}

} // namespace

class ZoneFileTest : public QObject {
    Q_OBJECT
private slots:
    void cleanup() { setSaveFault(nullptr); }
    void saveInto_data();
    void saveInto();
    void failingDisk_data();
    void failingDisk();
    void keepsOwnerAndMode_data();
    void keepsOwnerAndMode();
    void readOnlyRegularFiles_data();
    void readOnlyRegularFiles();
};

void ZoneFileTest::saveInto_data() {
    // The folder before, the error (empty: the save succeeds), the folder
    // after.  30.wld is saved with the text New; `=`: the folder as before.
    columns<QString, QString, QString>({"before", "error", "after"});
    // clang-format off
    QTest::newRow("a new file")
        << "" << "" << "30.wld=#2_New~_";
    QTest::newRow("an old file replaced")
        << "30.wld=#1_Old~_" << "" << "30.wld=#2_New~_";
    QTest::newRow("a planted link with the old fixed temp name is never followed")
        << "30.wld=#1_Old~_ 30.wld.marl-new>victim victim=precious"
        << "" << "30.wld=#2_New~_ 30.wld.marl-new>victim victim=precious";
    QTest::newRow("links beside the target, hidden or not, are never followed")
        << "30.wld=x .30.wld.marl-new>victim .30.wld.marl->victim .30.wld>victim victim=precious"
        << "" << ".30.wld>victim .30.wld.marl->victim .30.wld.marl-new>victim 30.wld=#2_New~_ victim=precious";
    QTest::newRow("a leftover pipe beside the target is not waited on")
        << "30.wld=x .30.wld.marl-new| 30.wld.marl-new|"
        << "" << ".30.wld.marl-new| 30.wld=#2_New~_ 30.wld.marl-new|";
    QTest::newRow("through a link the file it names is written and the link stays")
        << "30.wld>zones/30.wld zones/30.wld=#1_Old~_"
        << "" << "30.wld>zones/30.wld zones/ zones/30.wld=#2_New~_";
    QTest::newRow("a dangling link: the file it names is made")
        << "30.wld>zones/30.wld zones/"
        << "" << "30.wld>zones/30.wld zones/ zones/30.wld=#2_New~_";
    QTest::newRow("a chain of relative links, each from its own folder")
        << "30.wld>a/b.wld a/b.wld>../c/30.wld c/"
        << "" << "30.wld>a/b.wld a/ a/b.wld>../c/30.wld c/ c/30.wld=#2_New~_";
    QTest::newRow("a link to a missing folder")
        << "30.wld>gone/30.wld" << "No such file or directory" << "=";
    QTest::newRow("links in a loop")
        << "30.wld>a.wld a.wld>30.wld" << "Too many levels of symbolic links" << "=";
    QTest::newRow("a pipe as the target is refused, not waited on")
        << "30.wld|" << "not a regular file but a named pipe (FIFO)" << "=";
    QTest::newRow("a link to a pipe")
        << "30.wld>p p|" << "not a regular file but a named pipe (FIFO)" << "=";
    QTest::newRow("a folder as the target")
        << "30.wld/" << "Is a directory" << "=";
    // clang-format on
}

void ZoneFileTest::saveInto() {
    QFETCH(QString, before);
    QFETCH(QString, error);
    QFETCH(QString, after);
    QTemporaryDir dir;
    build(dir.path(), before);
    const QString was = listing(dir.path());
    const std::optional<Outcome> outcome = save(dir.filePath("30.wld"));
    QVERIFY2(outcome, "the save waited");
    QCOMPARE(QString::fromStdString(outcome->error), error);
    QCOMPARE(outcome->ok, error.isEmpty());
    QCOMPARE(listing(dir.path()), after == "=" ? was : after);
}

void ZoneFileTest::failingDisk_data() {
    // Each step of the save failing as a disk would, for an old file and for
    // a new one: the save fails with the system's reason, the old file is as
    // it was and no new file is left beside it.
    columns<int, int, QString, QString>({"step", "code", "before", "error"});
    const struct {
        const char* name;
        SaveStep step;
        int code;
        const char* error;
    } steps[] = {{"disk full on writing", SaveStep::Write, ENOSPC, "No space left on device"},
                 {"a failing write", SaveStep::Write, EIO, "Input/output error"},
                 {"a failing flush", SaveStep::Sync, EIO, "Input/output error"},
                 {"a failing rename", SaveStep::Rename, EXDEV, "Invalid cross-device link"}};
    for (const auto& s : steps)
        for (const char* before : {"30.wld=#1_Old~_ other=x", "other=x"})
            QTest::addRow("%s, %s", s.name, before[0] == '3' ? "old file" : "new file")
                << int(s.step) << s.code << QString(before) << QString(s.error);
}

void ZoneFileTest::failingDisk() {
    QFETCH(int, step);
    QFETCH(int, code);
    QFETCH(QString, before);
    QFETCH(QString, error);
    QTemporaryDir dir;
    build(dir.path(), before);
    failingStep = SaveStep(step);
    failingWith = code;
    setSaveFault(failStep);
    const std::optional<Outcome> outcome = save(dir.filePath("30.wld"), std::string(100000, 'x'));
    QVERIFY(outcome && !outcome->ok);
    QCOMPARE(QString::fromStdString(outcome->error), error);
    QCOMPARE(listing(dir.path()), before);
    // With the disk well again the same save goes through.
    setSaveFault(nullptr);
    QVERIFY(save(dir.filePath("30.wld"))->ok);
    QCOMPARE(test::readBytes(dir.filePath("30.wld")), std::string(kNew));
}

void ZoneFileTest::keepsOwnerAndMode_data() {
    // Owner and group -1: the file stays the tester's own.
    columns<int, int, int>({"mode", "owner", "group"});
    QTest::newRow("owner read and write only") << 0600 << -1 << -1;
    QTest::newRow("group may read") << 0640 << -1 << -1;
    QTest::newRow("everyone may read, executable") << 0755 << -1 << -1;
    QTest::newRow("only others may write") << 0602 << -1 << -1;
    QTest::newRow("another owner and group") << 0664 << 1234 << 5678;
    QTest::newRow("another group only") << 0660 << -1 << 5678;
}

void ZoneFileTest::keepsOwnerAndMode() {
    QFETCH(int, mode);
    QFETCH(int, owner);
    QFETCH(int, group);
    if ((owner >= 0 || group >= 0) && ::geteuid() != 0)
        QSKIP("only root can give a file to another owner");
    QTemporaryDir dir;
    const QString path = dir.filePath("30.wld");
    test::writeBytes(path, kOld);
    const QByteArray name = path.toLocal8Bit();
    QVERIFY(::chmod(name, mode_t(mode)) == 0);
    QVERIFY(::chown(name, uid_t(owner), gid_t(group)) == 0);
    struct stat before {};
    QVERIFY(::stat(name, &before) == 0);
    QVERIFY(save(path)->ok);
    struct stat after {};
    QVERIFY(::stat(name, &after) == 0);
    QCOMPARE(after.st_mode & 07777, before.st_mode & 07777);
    QCOMPARE(after.st_uid, before.st_uid);
    QCOMPARE(after.st_gid, before.st_gid);
    QVERIFY(after.st_ino != before.st_ino); // replaced, not written in place
    QCOMPARE(test::readBytes(path), std::string(kNew));
}

void ZoneFileTest::readOnlyRegularFiles_data() {
    // What 30.wld is, and what reading it gives: the error, or the text.
    columns<QString, QString, QString>({"before", "path", "read"});
    // clang-format off
    QTest::newRow("a file") << "30.wld=#1_Old~_" << "30.wld" << "#1\r\nOld~\r\n";
    QTest::newRow("an empty file") << "30.wld=" << "30.wld" << "";
    QTest::newRow("through a link") << "30.wld>z/30.wld z/30.wld=ab" << "30.wld" << "ab";
    QTest::newRow("a pipe is refused, not waited on") << "30.wld|" << "30.wld"
        << "not a regular file but a named pipe (FIFO)";
    QTest::newRow("a link to a pipe") << "30.wld>p p|" << "30.wld" << "not a regular file but a named pipe (FIFO)";
    QTest::newRow("a device") << "" << "/dev/zero" << "not a regular file but a device";
    QTest::newRow("a terminal") << "" << "/dev/tty" << "not a regular file but a device";
    QTest::newRow("a folder") << "30.wld/" << "30.wld" << "Is a directory";
    QTest::newRow("missing") << "" << "30.wld" << "No such file or directory";
    QTest::newRow("a dangling link") << "30.wld>gone" << "30.wld" << "No such file or directory";
    // Larger than any zone: refused before a byte is read, never held in memory.
    QTest::newRow("80 MB of # lines") << "30.wld~80M" << "30.wld"
        << "the file is larger than any zone file (more than 64 MB), so it is not read";
    QTest::newRow("100 GB, sparse") << "30.wld~100G" << "30.wld"
        << "the file is larger than any zone file (more than 64 MB), so it is not read";
    // clang-format on
}

void ZoneFileTest::readOnlyRegularFiles() {
    QFETCH(QString, before);
    QFETCH(QString, path);
    QFETCH(QString, read);
    QTemporaryDir dir;
    build(dir.path(), before);
    if (!path.startsWith('/'))
        path = dir.filePath(path);
    else if (!QFileInfo::exists(path))
        QSKIP("no such device here");
    const std::optional<Outcome> outcome = load(path);
    QVERIFY2(outcome, "the reading waited");
    QCOMPARE(QString::fromStdString(outcome->error), read);
}

MARL_TEST_MAIN(ZoneFileTest)
#include "zone_file_test.moc"
