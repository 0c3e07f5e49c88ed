// The vocabulary tables the mobile and object windows are built from,
// checked against each other where a mistake would still build: keys unique
// and in order, names and captions unique per table, every numeric field
// wide enough for its range, the values groups agreeing with the object
// types and the pick lists they open; the container state and dice texts
// read as the server means them; and the tables the server keeps itself
// (attack verbs, the effects of drinks) as its sources have them.

#include "zone_files.h"

#include <QFile>
#include <QRegularExpression>

#include <map>
#include <optional>
#include <set>

#include "mobiles/mobile_vocabulary.h"
#include "objects/object_values.h"
#include "objects/object_vocabulary.h"
#include "world/attack_types.h"
#include "world/dice.h"

using namespace marl;
using test::columns;

namespace {

struct Entry {
    long long key;
    QString control;
    QString caption;
};

struct Vocabulary {
    QList<Entry> entries;
    bool letters = false; // keys are flag letters
    bool bits = false;    // keys are bit values
};

template <typename Def, std::size_t N>
QList<Entry> entriesOf(const std::array<Def, N>& table, const char* Def::*control) {
    QList<Entry> out;
    for (const Def& def : table)
        out.push_back({def.number, def.*control, def.caption});
    return out;
}

template <std::size_t N> QList<Entry> flagsOf(const std::array<FlagDef, N>& table) {
    QList<Entry> out;
    for (const FlagDef& def : table)
        out.push_back({def.letter, def.control, def.caption});
    return out;
}

const std::map<QString, Vocabulary>& vocabularies() {
    static const std::map<QString, Vocabulary> all = {
        {"action flags", {flagsOf(kActionFlags), true}},
        {"affect flags", {flagsOf(kAffectFlags), true}},
        {"effect flags", {flagsOf(kEffectFlags), true}},
        {"wear flags", {flagsOf(kWearFlags), true}},
        {"genders", {entriesOf(kGenders, &ChoiceDef::control)}},
        {"load positions", {entriesOf(kPositions, &PositionDef::loadControl)}},
        {"default positions", {entriesOf(kPositions, &PositionDef::defaultControl)}},
        {"bare-hand attacks", {entriesOf(kAttackTypes, &AttackTypeDef::bareHandControl)}},
        {"weapon types", {entriesOf(kAttackTypes, &AttackTypeDef::weaponControl)}},
        {"object types", {entriesOf(kObjectTypes, &ObjectTypeDef::control)}},
        {"spells", {entriesOf(kSpells, &ChoiceDef::control)}},
        {"liquids", {entriesOf(kLiquids, &LiquidDef::control)}},
        {"affect locations", {entriesOf(kAffectLocations, &ChoiceDef::control)}},
        {"container state", {entriesOf(kContainerStateFlags, &ChoiceDef::control), false, true}},
    };
    return all;
}

// The longest text a number of this range is shown as.
int widthOf(const NumericRule& rule) {
    return int(std::max(std::to_string(rule.min).size(), std::to_string(rule.max).size()));
}

} // namespace

class VocabularyTablesTest : public QObject {
    Q_OBJECT
private slots:
    void vocabulary_data();
    void vocabulary();
    void fieldsFitTheirRanges();
    void valueGroupsServeTheTypesWithValues();
    void valueFields();
    void everyPickerIsReachable();
    void containerState_data();
    void containerState();
    void dice_data();
    void dice();
    void asTheServerHasThem_data();
    void asTheServerHasThem();
};

void VocabularyTablesTest::vocabulary_data() {
    QTest::addColumn<QString>("name");
    for (const auto& [name, vocabulary] : vocabularies())
        QTest::newRow(qPrintable(name)) << name;
}

void VocabularyTablesTest::vocabulary() {
    QFETCH(QString, name);
    const Vocabulary& vocabulary = vocabularies().at(name);
    QVERIFY(!vocabulary.entries.isEmpty());
    QSet<QString> controls, captions;
    std::optional<long long> previous;
    for (const Entry& entry : vocabulary.entries) {
        const QString at = entry.control + " (" + QString::number(entry.key) + ")";
        QVERIFY2(!previous || entry.key > *previous, qPrintable("out of order: " + at));
        previous = entry.key;
        if (vocabulary.letters)
            QVERIFY2(entry.key >= 'a' && entry.key <= 'z', qPrintable("not a letter: " + at));
        if (vocabulary.bits)
            QVERIFY2(entry.key > 0 && (entry.key & (entry.key - 1)) == 0,
                     qPrintable("not a bit: " + at));
        QVERIFY2(!controls.contains(entry.control), qPrintable("control twice: " + at));
        controls << entry.control;
        QVERIFY2(!entry.caption.trimmed().isEmpty() && !captions.contains(entry.caption),
                 qPrintable("caption empty or twice: " + at));
        captions << entry.caption;
    }
}

// A field's length holds every number of a range narrower than the 32 bits
// the record holds.
void VocabularyTablesTest::fieldsFitTheirRanges() {
    std::vector<FieldDef> fields(kMobileFields.begin(), kMobileFields.end());
    fields.insert(fields.end(), kObjectFields.begin(), kObjectFields.end());
    fields.push_back(kAffectModifierField);
    for (const AbilityDef& ability : kAbilities)
        fields.push_back(ability.field);
    for (const FieldDef& field : fields) {
        const NumericRule& rule = field.rule;
        if (field.kind == FieldKind::Text || !rule.hasRange)
            continue;
        QVERIFY2(rule.min <= rule.max && rule.min >= kInt32Min && rule.max <= kInt32Max,
                 field.control);
        if (rule.maxLength > 0 && rule.max < kInt32Max)
            QVERIFY2(widthOf(rule) <= rule.maxLength, field.control);
    }
}

void VocabularyTablesTest::valueGroupsServeTheTypesWithValues() {
    for (const ObjectTypeDef& type : kObjectTypes)
        QVERIFY2((findValueGroup(type.number) != nullptr) == type.hasValues, type.caption);
    std::set<int> served;
    for (const ValueGroupDef& group : kValueGroups)
        for (int type : group.types)
            if (type != 0) {
                QVERIFY2(served.insert(type).second, group.caption);
                QVERIFY2(findObjectType(type) != nullptr, group.caption);
            }
    QCOMPARE(findValueGroup(0), nullptr);
    QCOMPARE(findValueGroup(11), nullptr);
}

void VocabularyTablesTest::valueFields() {
    for (const ValueGroupDef& group : kValueGroups)
        for (const ValueDef& value : group.values) {
            if (value.kind != ValueKind::Field)
                continue;
            const QString at = QString(group.caption) + ": " + value.control;
            const NumericRule& rule = value.rule;
            QVERIFY2(rule.hasRange && rule.min <= rule.max, qPrintable(at));
            // The field is as wide as its highest number: no wider, so
            // nothing beyond the range can be typed, and no narrower.
            QVERIFY2(int(std::to_string(rule.max).size()) == rule.maxLength, qPrintable(at));
            QVERIFY2(!rule.allowMinus || rule.min < 0, qPrintable(at + ": `-` for nothing"));
            if (value.picker != ValuePicker::None) {
                const NumberRange range = pickerRange(value.picker);
                QVERIFY2(range.min == rule.min && range.max == rule.max,
                         qPrintable(at + ": not the range of its list"));
            }
        }
}

void VocabularyTablesTest::everyPickerIsReachable() {
    std::set<ValuePicker> opened;
    for (const ValueGroupDef& group : kValueGroups)
        for (const ValueDef& value : group.values)
            if (value.picker != ValuePicker::None)
                opened.insert(value.picker);
    QCOMPARE(opened.size(), pickLists().size() + 1); // and the container state
    QVERIFY(opened.count(ValuePicker::ContainerState));
    for (const PickListDef& list : pickLists()) {
        QVERIFY2(opened.count(list.picker), list.text.form);
        QCOMPARE(findPickList(list.picker), &list);
        QVERIFY2(findChoice(list.options, list.defaultNumber) != nullptr, list.text.form);
        QCOMPARE(QString(list.text.title), QString(list.text.frameCaption));
    }
    QCOMPARE(findPickList(ValuePicker::ContainerState), nullptr);
}

void VocabularyTablesTest::containerState_data() {
    columns<int, QString>({"state", "checked"});
    QTest::newRow("15") << 15 << "Closeable PickProof Closed Locked";
    QTest::newRow("13") << 13 << "Closeable Closed Locked";
    QTest::newRow("8") << 8 << "Locked";
    QTest::newRow("0") << 0 << "";
    QTest::newRow("16") << 16 << "";
    QTest::newRow("17") << 17 << "";
    QTest::newRow("-1") << -1 << "";
}

void VocabularyTablesTest::containerState() {
    QFETCH(int, state);
    QFETCH(QString, checked);
    QStringList boxes;
    for (const ChoiceDef& flag : kContainerStateFlags)
        if (containerStateHas(state, flag.number))
            boxes << flag.caption;
    QCOMPARE(boxes.join(' '), checked);
}

void VocabularyTablesTest::dice_data() {
    columns<QString, QString, QString, QString, QString>(
        {"text", "count", "size", "bonus", "joined"});
    // clang-format off
    QTest::newRow("whole") << "2d8+100" << "2" << "8" << "100" << "2d8+100";
    QTest::newRow("negative bonus") << "1d6+-2" << "1" << "6" << "-2" << "1d6+-2";
    QTest::newRow("no d, no +") << "0" << "0" << "" << "" << "0d+";
    QTest::newRow("no +") << "2d8" << "2" << "8" << "" << "2d8+";
    QTest::newRow("no d") << "5+3" << "5" << "" << "3" << "5d+3";
    QTest::newRow("empty") << "" << "" << "" << "" << "d+";
    QTest::newRow("empty parts") << "d+" << "" << "" << "" << "d+";
    QTest::newRow("second d") << "1d2d3+4" << "1" << "2" << "4" << "1d2+4";
    QTest::newRow("second +") << "1d6+2+3" << "1" << "6" << "2" << "1d6+2";
    QTest::newRow("capital D") << "1D6+2" << "1D6" << "" << "2" << "1D6d+2";
    QTest::newRow("1d100") << "1d100+0" << "1" << "100" << "0" << "1d100+0";
    // clang-format on
}

void VocabularyTablesTest::dice() {
    QFETCH(QString, text);
    QFETCH(QString, count);
    QFETCH(QString, size);
    QFETCH(QString, bonus);
    QFETCH(QString, joined);
    const DiceParts parts = splitDice(text.toStdString());
    QCOMPARE(QString::fromStdString(parts.count), count);
    QCOMPARE(QString::fromStdString(parts.size), size);
    QCOMPARE(QString::fromStdString(parts.bonus), bonus);
    QCOMPARE(QString::fromStdString(joinDice(parts)), joined);
}

void VocabularyTablesTest::asTheServerHasThem_data() {
    // The server's source file, a row of its table there (the first rows of
    // that form in the file) and our table's rows the same way.
    columns<QString, QString, QStringList>({"file", "row", "ours"});
    QStringList verbs, drinks;
    for (const AttackTypeDef& type : kAttackTypes)
        verbs << QString::fromLatin1(type.caption);
    // The server's columns: drunkenness, hunger, thirst.
    for (const LiquidDef& liquid : kLiquids)
        drinks << QStringLiteral("%1/%2/%3").arg(liquid.drunk).arg(liquid.fill).arg(liquid.thirst);
    QTest::newRow("attack verbs") << "fight.c"
                                  << R"re(\{"(\w+)", "(\w+)"\})re" << verbs;
    QTest::newRow("effects of drinks") << "constants.c"
                                       << R"(\{(-?\d+), (-?\d+), (-?\d+)\})" << drinks;
}

void VocabularyTablesTest::asTheServerHasThem() {
    QFETCH(QString, file);
    QFETCH(QString, row);
    QFETCH(QStringList, ours);
    QFile source(QStringLiteral(MARL_CORPUS_DIR "/../server/circle/src/") + file);
    if (!source.open(QIODevice::ReadOnly))
        QSKIP("the server's sources are not beside the project");
    QStringList theirs;
    for (const QRegularExpressionMatch& match :
         QRegularExpression(row).globalMatch(QString::fromLatin1(source.readAll())))
        theirs << match.capturedTexts().mid(1).join('/');
    QCOMPARE(theirs.mid(0, ours.size()), ours);
}

QTEST_GUILESS_MAIN(VocabularyTablesTest)
#include "vocabulary_tables_test.moc"
