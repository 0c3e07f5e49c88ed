// The server's stock zone files, read and written: every file opens with the
// record count of its `#` headers, what is written reads back to the same
// records, and a file the editor wrote is written again byte for byte.

#include "zone_files.h"

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

std::string withCrLf(const std::string& lf) {
    return QByteArray::fromStdString(lf).replace("\n", "\r\n").toStdString();
}

// read(f) has the header count; read(write(read(f))) equals read(f) field by
// field; write(read(write(read(f)))) equals write(read(f)) byte for byte;
// the line ends are the file's.
template <typename Kind> void roundTrip(const std::string& bytes, std::int32_t zone) {
    auto first = std::make_unique<typename Kind::Table>();
    const int count = Kind::read(bytes, *first);
    QCOMPARE(count, headerLines(bytes));
    const std::string written = Kind::write(*first, count, zone);
    QCOMPARE(written.find('\r') == std::string::npos, bytes.find('\r') == std::string::npos);

    auto second = std::make_unique<typename Kind::Table>();
    QCOMPARE(Kind::read(written, *second), count);
    for (int slot = 0; slot <= count; ++slot)
        QVERIFY2((*second)[slot] == (*first)[slot], qPrintable(QString("slot %1").arg(slot)));
    QVERIFY2(Kind::write(*second, count, zone) == written, "not written again byte for byte");
}

void zoneFileRows(const QString& dir, const QString& none) {
    QTest::addColumn<QString>("path");
    const QFileInfoList files = dir.isEmpty() ? QFileInfoList{}
                                              : QDir(dir).entryInfoList({"*.wld", "*.mob", "*.obj"},
                                                                        QDir::Files, QDir::Name);
    if (files.isEmpty())
        QTest::newRow("none") << none;
    for (const QFileInfo& info : files)
        QTest::newRow(qPrintable(info.fileName())) << info.absoluteFilePath();
}

} // namespace

class CorpusTest : public QObject {
    Q_OBJECT
private slots:
    void everyFileReadsAndWritesBack_data() {
        zoneFileRows(test::corpusDir(),
                     "the server's stock zone files are not at ../shared/corpus");
    }
    void everyFileReadsAndWritesBack();
    void editorFilesAreWrittenUnchanged_data() {
        zoneFileRows(test::examplesDir(), "no example zone files");
    }
    void editorFilesAreWrittenUnchanged();
};

void CorpusTest::everyFileReadsAndWritesBack() {
    QFETCH(QString, path);
    if (!QFileInfo(path).isFile())
        QSKIP(qPrintable(path));
    const std::string bytes = test::readBytes(path);
    const QString name = QFileInfo(path).fileName();
    const std::int32_t zone = zoneFromFileName(name.toStdString()).value_or(0);
    test::byExtension(name, [&]<typename Kind>() {
        roundTrip<Kind>(bytes, zone);
        // The same file with CR LF line ends reads the same and is written
        // the same, in CR LF.
        if (bytes.find('\r') == std::string::npos) {
            auto lf = std::make_unique<typename Kind::Table>();
            auto crlf = std::make_unique<typename Kind::Table>();
            const int count = Kind::read(bytes, *lf);
            QCOMPARE(Kind::read(withCrLf(bytes), *crlf), count);
            QCOMPARE(Kind::write(*crlf, count, zone), withCrLf(Kind::write(*lf, count, zone)));
        }
    });
}

void CorpusTest::editorFilesAreWrittenUnchanged() {
    QFETCH(QString, path);
    if (!QFileInfo(path).isFile())
        QSKIP(qPrintable(path));
    QVERIFY2(test::rewritten(path) == test::readBytes(path), "not written back byte for byte");
}

QTEST_GUILESS_MAIN(CorpusTest)
#include "corpus_test.moc"
