// Every byte of a text survives reading and writing: CR runs in each text
// field of each kind, in LF and CR LF files, through three cycles of writing
// every record field by field and reading it again.

#include "test_main.h"

#include "zone_files.h"

using namespace marl;
using test::columns;

namespace {

// A file of each kind in the editor's own form, `@` standing for the field
// under test, every other text `x`.  A multi-line text stands on lines of
// its own before its `~` line; a one-line string runs into its `~`.
struct FieldCase {
    const char* kind;
    const char* field;
    const char* file;
};

// clang-format off
constexpr FieldCase kFields[] = {
    {"room", "Name", "#3001|@~|x|~|30 ad 1|D0|x|~|x~|1 -1 3002|E|x~|x|~|S|$"},
    {"room", "Desc", "#3001|x~|@|~|30 ad 1|D0|x|~|x~|1 -1 3002|E|x~|x|~|S|$"},
    {"room", "exit Desc", "#3001|x~|x|~|30 ad 1|D0|@|~|x~|1 -1 3002|E|x~|x|~|S|$"},
    {"room", "exit Keywords", "#3001|x~|x|~|30 ad 1|D0|x|~|@~|1 -1 3002|E|x~|x|~|S|$"},
    {"room", "extra Keywords", "#3001|x~|x|~|30 ad 1|D0|x|~|x~|1 -1 3002|E|@~|x|~|S|$"},
    {"room", "extra Desc", "#3001|x~|x|~|30 ad 1|D0|x|~|x~|1 -1 3002|E|x~|@|~|S|$"},
    {"mobile", "Alias", "#3001|@~|x~|x|~|x|~|ab 0 350 S|10 9 4 2d8+100 1d8+4|500 9000|8 8 1|$"},
    {"mobile", "SDesc", "#3001|x~|@~|x|~|x|~|ab 0 350 S|10 9 4 2d8+100 1d8+4|500 9000|8 8 1|$"},
    {"mobile", "LDesc", "#3001|x~|x~|@|~|x|~|ab 0 350 S|10 9 4 2d8+100 1d8+4|500 9000|8 8 1|$"},
    {"mobile", "DDesc", "#3001|x~|x~|x|~|@|~|ab 0 350 S|10 9 4 2d8+100 1d8+4|500 9000|8 8 1|$"},
    {"object", "Alias", "#3009|@~|x~|x~|x~|19 0 a|24 0 0 0|1 50 50|E|x~|x|~|A|1 2|$"},
    {"object", "SDesc", "#3009|x~|@~|x~|x~|19 0 a|24 0 0 0|1 50 50|E|x~|x|~|A|1 2|$"},
    {"object", "LDesc", "#3009|x~|x~|@~|x~|19 0 a|24 0 0 0|1 50 50|E|x~|x|~|A|1 2|$"},
    {"object", "ADesc", "#3009|x~|x~|x~|@~|19 0 a|24 0 0 0|1 50 50|E|x~|x|~|A|1 2|$"},
    {"object", "extra Keywords", "#3009|x~|x~|x~|x~|19 0 a|24 0 0 0|1 50 50|E|@~|x|~|A|1 2|$"},
    {"object", "extra Desc", "#3009|x~|x~|x~|x~|19 0 a|24 0 0 0|1 50 50|E|x~|@|~|A|1 2|$"},
};

// Texts with CRs that are not part of a line end (`|` is a line break).
constexpr std::pair<const char*, const char*> kCrRuns[] = {
    {"CR run inside a line", "a\r\r\rb"},
    {"CR before a line break", "ab\r|cd"},
    {"CR runs before line breaks and a CR line", "ab\r\r|\r|\r\r|cd"},
    {"a lone CR", "\r"},
    {"CR before the closing line break", "ab\r"},
    {"blank line after a CR", "a\r||b"},
};
// clang-format on

} // namespace

class TextBytesTest : public QObject {
    Q_OBJECT
private slots:
    void crRunsSurvive_data();
    void crRunsSurvive();
};

void TextBytesTest::crRunsSurvive_data() {
    columns<QString, QString>({"kind", "file"});
    for (const FieldCase& field : kFields)
        for (const auto& [name, text] : kCrRuns)
            QTest::newRow(qPrintable(QString("%1 %2: %3").arg(field.kind, field.field, name)))
                << QString(field.kind) << QString(field.file).replace('@', QString(text));
}

void TextBytesTest::crRunsSurvive() {
    QFETCH(QString, kind);
    QFETCH(QString, file);
    test::byExtension(
        kind == "room"     ? "1.wld"
        : kind == "mobile" ? "1.mob"
                           : "1.obj",
        [&]<typename Kind>() {
            for (const char* eol : {"\r\n", "\n"}) {
                const std::string bytes = test::lines(file, eol);
                auto first = std::make_unique<typename Kind::Table>();
                QCOMPARE(Kind::read(bytes, *first), 1);
                auto table = std::make_unique<typename Kind::Table>(*first);
                for (int cycle = 1; cycle <= 3; ++cycle) {
                    test::storeAll(*table, 1);
                    const std::string written = Kind::write(*table, 1);
                    QVERIFY2(written == bytes,
                             qPrintable(
                                 QString("%1, cycle %2").arg(eol[1] ? "CR LF" : "LF").arg(cycle)));
                    table = std::make_unique<typename Kind::Table>();
                    QCOMPARE(Kind::read(written, *table), 1);
                    QVERIFY(test::sameFields((*table)[0], (*first)[0]));
                }
            }
        });
}

MARL_TEST_MAIN(TextBytesTest)
#include "text_bytes_test.moc"
