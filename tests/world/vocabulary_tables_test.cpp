// The vocabulary tables the mobile and object windows are built from: every
// table well formed (keys unique and in order, control names unique and of
// their kind), every window's names unique, the values groups agreeing with
// the object types and the pick lists they open, dice texts split and
// joined, and our example zone showing in the editors as it stands.

#include "zone_files.h"

#include <QRegularExpression>

#include <climits>
#include <map>
#include <set>

#include "mobiles/mobile_vocabulary.h"
#include "objects/object_values.h"
#include "objects/object_vocabulary.h"
#include "world/attack_types.h"
#include "world/dice.h"

using namespace marl;
using test::columns;

Q_DECLARE_METATYPE(marl::FieldDef)

namespace {

struct Entry {
    long long key;
    QString control;
    QString caption;
};

struct Vocabulary {
    QList<Entry> entries;
    QString prefix;       // what every control name starts with
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
        {"action flags", {flagsOf(kActionFlags), "check", true}},
        {"affect flags", {flagsOf(kAffectFlags), "check", true}},
        {"effect flags", {flagsOf(kEffectFlags), "check", true}},
        {"wear flags", {flagsOf(kWearFlags), "check", true}},
        {"genders", {entriesOf(kGenders, &ChoiceDef::control), "option"}},
        {"load positions", {entriesOf(kPositions, &PositionDef::loadControl), "optionLoad"}},
        {"default positions", {entriesOf(kPositions, &PositionDef::defaultControl), "option"}},
        {"bare-hand attacks",
         {entriesOf(kAttackTypes, &AttackTypeDef::bareHandControl), "optionBHA"}},
        {"weapon types", {entriesOf(kAttackTypes, &AttackTypeDef::weaponControl), "option"}},
        {"object types", {entriesOf(kObjectTypes, &ObjectTypeDef::control), "option"}},
        {"spells", {entriesOf(kSpells, &ChoiceDef::control), "option"}},
        {"liquids", {entriesOf(kLiquids, &LiquidDef::control), "option"}},
        {"affect locations", {entriesOf(kAffectLocations, &ChoiceDef::control), "option"}},
        {"container state",
         {entriesOf(kContainerStateFlags, &ChoiceDef::control), "check", false, true}},
    };
    return all;
}

// The names one window gives its controls, by the tables it is built from.
QStringList namesOf(const QString& window) {
    QStringList names;
    auto add = [&](const char* name) {
        if (name != nullptr)
            names << name;
    };
    auto addFrame = [&](const char* frame) {
        if (frame != nullptr && !names.contains(frame))
            names << frame;
    };
    auto addVocabulary = [&](const char* vocabulary) {
        for (const Entry& entry : vocabularies().at(vocabulary).entries)
            names << entry.control;
    };
    auto addDialog = [&](const DialogText& text) {
        add(text.frame);
        names << "buttonDone"
              << "buttonCancel"
              << "buttonClearAll";
    };
    if (window == "formMobile") {
        for (const FieldDef& field : kMobileFields) {
            addFrame(field.frame);
            names << field.control;
        }
        for (const DiceFrameDef& dice : kMobileDice)
            names << dice.dieLabel << dice.plusLabel;
        for (const char* group : {"genders", "load positions", "default positions"})
            addVocabulary(group);
        names << kGenderFrameControl << kLoadPositionFrameControl << kDefaultPositionFrameControl
              << kMobileListFrame << kMobileList;
    } else if (window == "formMobileAction" || window == "formMobileAffect") {
        const FlagDialogDef& dialog =
            window == "formMobileAction" ? kActionFlagDialog : kAffectFlagDialog;
        addDialog(dialog.text);
        for (const FlagDef& flag : dialog.flags)
            names << flag.control;
    } else if (window == "formMobileESpecs") {
        addDialog(kESpecsDialog);
        for (const AbilityDef& ability : kAbilities)
            names << ability.field.frame << ability.field.control;
        addVocabulary("bare-hand attacks");
        names << kBareHandFrame;
    } else if (window == "formObject") {
        for (const FieldDef& field : kObjectFields)
            names << field.frame << field.control;
        for (const char* group : {"object types", "effect flags", "wear flags"})
            addVocabulary(group);
        names << kObjectTypeFrameControl << kEffectFrameControl << kWearFrameControl
              << kObjectListFrame << kObjectList;
    } else if (window == "formObjectValues") {
        addDialog(kObjectValuesDialog);
        for (const ValueGroupDef& group : kValueGroups) {
            names << group.frame;
            for (const ValueDef& value : group.values) {
                add(value.control);
                add(value.captionControl);
            }
        }
        names << kEternalCheck;
    } else if (window == "formObjectAffects") {
        addDialog(kObjectAffectsDialog);
        addVocabulary("affect locations");
        names << kAffectLocationFrame << kAffectModifierField.frame << kAffectModifierField.control
              << kAffectList;
    } else if (window == "formObjectLiquids") {
        addDialog(findPickList(ValuePicker::Liquids)->text);
        addVocabulary("liquids");
        for (int side : {1, 2})
            for (int column = 0; column < int(kLiquidColumns.size()); ++column)
                names << QString::fromStdString(liquidColumnLabel(column, side));
        for (const LiquidDef& liquid : kLiquids)
            for (int column = 0; column < int(kLiquidColumns.size()); ++column)
                names << QString::fromStdString(liquidLabel(liquid, column));
    } else if (window == "formObjectContainerState") {
        addDialog(kContainerStateDialog);
        addVocabulary("container state");
    }
    return names;
}

QStringList captionsOf(const ValueDef& value) {
    return {value.control, value.captionControl, value.caption};
}

// The longest text a number of this range is shown as.
int widthOf(const NumericRule& rule) {
    return int(std::max(std::to_string(rule.min).size(), std::to_string(rule.max).size()));
}

bool inRange(long long value, const NumericRule& rule) {
    return !rule.hasRange || (value >= rule.min && value <= rule.max);
}

std::unique_ptr<MobileTable> exampleMobiles(int& count) {
    auto table = std::make_unique<MobileTable>();
    count = readMobiles(test::readBytes(test::examplesDir() + "/95.mob"), *table);
    return table;
}

std::unique_ptr<ObjectTable> exampleObjects(int& count) {
    auto table = std::make_unique<ObjectTable>();
    count = readObjects(test::readBytes(test::examplesDir() + "/95.obj"), *table);
    return table;
}

} // namespace

class VocabularyTablesTest : public QObject {
    Q_OBJECT
private slots:
    void vocabulary_data();
    void vocabulary();
    void windowNames_data();
    void windowNames();
    void fieldRules_data();
    void fieldRules();
    void valueGroupsServeTheTypesWithValues();
    void valueFields();
    void everyPickerIsReachable();
    void dialogTexts();
    void attackTypesAreNumberedByPlace();
    void containerState_data();
    void containerState();
    void dice_data();
    void dice();
    void exampleMobilesShowAsTheyStand();
    void exampleObjectsShowAsTheyStand();
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
        // The kind, then the name's own capital: `optionNoSpell`, not `optionnoSpell`.
        QVERIFY2(entry.control.startsWith(vocabulary.prefix) &&
                     entry.control.size() > vocabulary.prefix.size() &&
                     entry.control[vocabulary.prefix.size()].isUpper(),
                 qPrintable("control name: " + at));
        QVERIFY2(!controls.contains(entry.control), qPrintable("control twice: " + at));
        controls << entry.control;
        QVERIFY2(!entry.caption.trimmed().isEmpty() && !captions.contains(entry.caption),
                 qPrintable("caption empty or twice: " + at));
        captions << entry.caption;
    }
}

void VocabularyTablesTest::windowNames_data() {
    QTest::addColumn<QString>("window");
    for (const char* window :
         {"formMobile", "formMobileAction", "formMobileAffect", "formMobileESpecs", "formObject",
          "formObjectValues", "formObjectAffects", "formObjectLiquids", "formObjectContainerState"})
        QTest::newRow(window) << window;
}

void VocabularyTablesTest::windowNames() {
    QFETCH(QString, window);
    const QStringList names = namesOf(window);
    QVERIFY(names.size() > 4);
    QSet<QString> seen;
    for (const QString& name : names) {
        QVERIFY2(!seen.contains(name), qPrintable(name + " twice in " + window));
        seen << name;
        QVERIFY2(QRegularExpression("^[a-z]+[A-Z0-9][A-Za-z0-9]*$").match(name).hasMatch(),
                 qPrintable("not a control name: " + name));
    }
}

void VocabularyTablesTest::fieldRules_data() {
    QTest::addColumn<QString>("control");
    QTest::addColumn<FieldDef>("field");
    auto add = [](const QString& window, const FieldDef& field) {
        QTest::newRow(qPrintable(window + ' ' + field.control)) << field.control << field;
    };
    for (const FieldDef& field : kMobileFields)
        add("formMobile", field);
    for (const AbilityDef& ability : kAbilities)
        add("formMobileESpecs", ability.field);
    for (const FieldDef& field : kObjectFields)
        add("formObject", field);
    add("formObjectAffects", kAffectModifierField);
}

void VocabularyTablesTest::fieldRules() {
    QFETCH(QString, control);
    QFETCH(FieldDef, field);
    QVERIFY(field.frame != nullptr && *field.caption != '\0');
    QVERIFY(control.startsWith("text"));
    const NumericRule& rule = field.rule;
    if (field.kind == FieldKind::Text) {
        QVERIFY(!rule.hasRange && !rule.allowMinus);
        return;
    }
    if (!rule.hasRange)
        return;
    QVERIFY(rule.min <= rule.max);
    QVERIFY(rule.min >= kInt32Min && rule.max <= kInt32Max);
    // A limit long enough for every number of a range narrower than the
    // 32 bits the record holds.
    if (rule.maxLength > 0 && rule.max < kInt32Max)
        QVERIFY2(widthOf(rule) <= rule.maxLength, "the range does not fit the field");
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
    for (const ValueGroupDef& group : kValueGroups) {
        bool anyField = false;
        for (const ValueDef& value : group.values) {
            const QString at = QString(group.caption) + ": " + captionsOf(value).join(' ');
            switch (value.kind) {
            case ValueKind::Stored0:
                QVERIFY2(value.control == nullptr && value.captionControl == nullptr,
                         qPrintable(at));
                break;
            case ValueKind::Poisoned:
                QVERIFY2(QString(value.control).startsWith("check"), qPrintable(at));
                QCOMPARE(QString(value.caption), QString("Poisoned"));
                break;
            case ValueKind::Field: {
                anyField = true;
                const NumericRule& rule = value.rule;
                const bool button = value.picker != ValuePicker::None;
                QVERIFY2(QString(value.control).startsWith("text"), qPrintable(at));
                QVERIFY2(QString(value.captionControl).startsWith(button ? "button" : "label"),
                         qPrintable(at));
                QVERIFY2(rule.hasRange && rule.min <= rule.max && rule.maxLength > 0,
                         qPrintable(at));
                // The field is as wide as its highest number: no wider, so
                // nothing beyond the range can be typed, and no narrower.
                QVERIFY2(int(std::to_string(rule.max).size()) == rule.maxLength, qPrintable(at));
                QVERIFY2(!rule.allowMinus || rule.min < 0, qPrintable(at + ": `-` for nothing"));
                if (button) {
                    const NumberRange range = pickerRange(value.picker);
                    QVERIFY2(range.min == rule.min && range.max == rule.max,
                             qPrintable(at + ": not the range of its list"));
                }
                break;
            }
            }
        }
        QVERIFY2(anyField, group.caption);
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

void VocabularyTablesTest::dialogTexts() {
    std::vector<const DialogText*> dialogs = {&kActionFlagDialog.text, &kAffectFlagDialog.text,
                                              &kESpecsDialog,          &kMobileDescDialog,
                                              &kObjectValuesDialog,    &kObjectAffectsDialog,
                                              &kContainerStateDialog,  &kObjectActionDescDialog};
    for (const PickListDef& list : pickLists())
        dialogs.push_back(&list.text);
    QSet<QString> forms;
    for (const DialogText* dialog : dialogs) {
        const QString form = dialog->form;
        QVERIFY2(form.startsWith("form") && !forms.contains(form), qPrintable(form));
        forms << form;
        QVERIFY2(*dialog->title != '\0' && *dialog->changedTitle != '\0', qPrintable(form));
        QVERIFY2(QString(dialog->changedLine).startsWith("Changes to ") &&
                     QString(dialog->changedLine).endsWith('.'),
                 qPrintable(form));
        QVERIFY2((dialog->frame == nullptr) == (dialog->frameCaption == nullptr), qPrintable(form));
    }
    for (const EditorText* editor : {&kMobileEditor, &kObjectEditor})
        QVERIFY(QString(editor->overwriteLine).startsWith(editor->overwriteTitle));
}

void VocabularyTablesTest::attackTypesAreNumberedByPlace() {
    for (std::size_t i = 0; i < kAttackTypes.size(); ++i) {
        QCOMPARE(kAttackTypes[i].number, int(i));
        QCOMPARE(findAttackType(int(i)), &kAttackTypes[i]);
    }
    QCOMPARE(findAttackType(15), nullptr);
    QCOMPARE(findAttackType(-1), nullptr);
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

void VocabularyTablesTest::exampleMobilesShowAsTheyStand() {
    int count = 0;
    const auto table = exampleMobiles(count);
    QVERIFY(count >= 3);
    std::set<std::string> letters;
    for (int slot = 0; slot < count; ++slot) {
        const MobileRecord& m = (*table)[slot];
        const QString at = QString::number(m.VNum);
        letters.insert(m.TypeLetter);
        QCOMPARE(m.TypeLetter == "E", hasExtendedValues(m));
        const std::map<std::string, long long> numbers = {
            {"textVNum", m.VNum}, {"textLevel", m.Level}, {"textAlign", m.Align},
            {"textGold", m.Gold}, {"textTHAC0", m.THAC0}, {"textAC", m.AC},
            {"textXP", m.XP}};
        for (const auto& [control, value] : numbers)
            QVERIFY2(inRange(value, findField(kMobileFields, control)->rule),
                     qPrintable(at + ' ' + control.c_str()));
        for (const DiceFrameDef& dice : kMobileDice) {
            const DiceParts parts = splitDice(m.*dice.field);
            QCOMPARE(joinDice(parts), m.*dice.field);
            const std::pair<const char*, const std::string&> shown[] = {
                {dice.countControl, parts.count},
                {dice.sizeControl, parts.size},
                {dice.bonusControl, parts.bonus}};
            for (const auto& [control, text] : shown)
                QVERIFY2(inRange(readNumber(text).value_or(LLONG_MIN),
                                 findField(kMobileFields, control)->rule),
                         qPrintable(at + ' ' + control));
        }
        QVERIFY2(findChoice(kGenders, m.Gender) != nullptr, qPrintable(at));
        for (int position : {m.LPos, m.DPos})
            QVERIFY2(std::any_of(kPositions.begin(), kPositions.end(),
                                 [&](const PositionDef& p) { return p.number == position; }),
                     qPrintable(at));
        QVERIFY2(findAttackType(m.BHA) != nullptr, qPrintable(at));
        for (const AbilityDef& ability : kAbilities)
            QVERIFY2(m.*ability.value == 0 || inRange(m.*ability.value, ability.field.rule),
                     qPrintable(at + ' ' + ability.field.control));
        for (const FlagDialogDef* dialog : {&kActionFlagDialog, &kAffectFlagDialog}) {
            const std::string& flags = m.*dialog->field;
            QCOMPARE(flagText(dialog->flags, flagSet(dialog->flags, flags)), flags);
        }
    }
    QCOMPARE(letters, (std::set<std::string>{"E", "S"}));
}

void VocabularyTablesTest::exampleObjectsShowAsTheyStand() {
    int count = 0;
    const auto table = exampleObjects(count);
    std::set<int> types;
    int extraDescs = 0, affects = 0;
    for (int slot = 0; slot < count; ++slot) {
        const ObjectRecord& o = (*table)[slot];
        const QString at = QString::number(o.VNum);
        types.insert(o.OType);
        QVERIFY2(findObjectType(o.OType) != nullptr, qPrintable(at));
        QCOMPARE(flagText(kEffectFlags, flagSet(kEffectFlags, o.EBitV)), o.EBitV);
        QCOMPARE(flagText(kWearFlags, flagSet(kWearFlags, o.WBitV)), o.WBitV);
        const std::map<std::string, long long> numbers = {{"textVNum", o.VNum},
                                                          {"textWeight", o.Weight},
                                                          {"textCost", o.Cost},
                                                          {"textRPD", o.RPD}};
        for (const auto& [control, number] : numbers)
            QVERIFY2(inRange(number, findField(kObjectFields, control)->rule),
                     qPrintable(at + ' ' + control.c_str()));
        if (const ValueGroupDef* group = findValueGroup(o.OType))
            for (int i = 0; i < kObjectValues; ++i) {
                const ValueDef& value = group->values[std::size_t(i)];
                const QString which = at + " value " + QString::number(i);
                if (value.kind == ValueKind::Stored0)
                    QVERIFY2(o.Values[std::size_t(i)] == 0, qPrintable(which));
                else if (value.kind == ValueKind::Field)
                    QVERIFY2(inRange(o.Values[std::size_t(i)], value.rule), qPrintable(which));
            }
        extraDescs += extraDescCount(o.ExtraDescs);
        for (int i = 0; i < affectCount(o); ++i, ++affects)
            QVERIFY2(findChoice(kAffectLocations, o.Affects[i].Location) != nullptr,
                     qPrintable(at));
    }
    // A weapon, a container, a potion and a light at least.
    for (int type : {1, 5, 10, 15})
        QVERIFY2(types.count(type), qPrintable(QString::number(type)));
    QVERIFY(extraDescs > 0 && affects > 0);
}

QTEST_GUILESS_MAIN(VocabularyTablesTest)
#include "vocabulary_tables_test.moc"
