// The extra-descriptions dialog on records of its own: the list, the enabling
// of its buttons, Add, Edit, Update, Remove, Remove All, and its ways out for
// both variants.

#include "../rooms/form_room_fixture.h"

#include <QGroupBox>
#include <QPushButton>
#include <vector>

#include "dialogs/extra_descs_dialog.h"

using namespace marl;
using namespace marl::test;

namespace {

using Pairs = std::array<ExtraDesc, kExtraDescSlots>;

// An owner window, three records of pairs, and the dialog on one of them.
struct Harness {
    std::vector<Pairs> records = std::vector<Pairs>(3);
    int hasChangedCalls = 0;
    QWidget owner;
    ScriptedPrompts prompts;
    QPointer<ExtraDescsDialog> dialog;

    void fill(int record, const QStringList& keywords) {
        for (qsizetype i = 0; i < keywords.size(); ++i)
            records[record][i] = {keywords[i].toStdString(), "desc " + std::to_string(i)};
    }
    ExtraDescsDialog* open(int record, bool room = true) {
        ExtraDescsVariant variant;
        variant.formName = room ? "formRoomExtraDescs" : "formObjectExtraDescs";
        variant.frameCaption = room ? "Room Extra Descriptions" : "Object Extra Descriptions";
        variant.pairs = [this](int r) { return std::span<ExtraDesc>(records[r]); };
        variant.hasChanged = [this] { ++hasChangedCalls; };
        variant.hasChangedWhenPending = room;
        owner.show();
        owner.setEnabled(false);
        dialog = new ExtraDescsDialog(std::move(variant), &owner, prompts);
        dialog->SetupForm(record);
        dialog->show();
        return dialog;
    }
    ~Harness() { delete dialog.data(); }

    template <typename Widget> Widget* in(const char* name) const {
        return find<Widget>(dialog, QString::fromLatin1(name));
    }
    QListWidget* list() const { return in<QListWidget>("listExtraDescs"); }
    bool enabled(const char* name) const { return in<QPushButton>(name)->isEnabled(); }
    QString enabledButtons() const {
        QStringList out;
        for (const char* name : {"buttonAdd", "buttonUpdate", "buttonEdit", "buttonRemove",
                                 "buttonRemoveAll", "buttonClearAll", "buttonDone", "buttonCancel"})
            if (enabled(name))
                out.append(QString::fromLatin1(name).mid(6));
        return out.join(' ');
    }
};

} // namespace

class ExtraDescsDialogTest : public QObject {
    Q_OBJECT
private slots:
    void opening_data();
    void opening();
    void variantsDifferOnlyInNames();
    void addAndUpdateNeedKeywords_data();
    void addAndUpdateNeedKeywords();
    void addStoresAtOnce();
    void addStopsAt127Pairs_data();
    void addStopsAt127Pairs();
    void editAndUpdate_data();
    void editAndUpdate();
    void updateWithNoSelectedLineStoresNothing();
    void removeFirstOfThree();
    void removeAllTouchesOnlyThisRecord();
    void tildeCannotBeTyped();
    void clearAll();
    void waysOut_data();
    void waysOut();
};

void ExtraDescsDialogTest::opening_data() {
    QTest::addColumn<QStringList>("keywords");
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QString>("buttons");
    QTest::newRow("no pairs") << QStringList{} << QStringList{} << "ClearAll Done Cancel";
    QTest::newRow("empty keywords end the list")
        << QStringList{"bell", "pole", "", "rope"} << QStringList{"bell", "pole"}
        << "RemoveAll ClearAll Done Cancel";
}

void ExtraDescsDialogTest::opening() {
    QFETCH(QStringList, keywords);
    QFETCH(QStringList, lines);
    QFETCH(QString, buttons);
    Harness h;
    h.fill(1, keywords);
    h.open(1);
    QCOMPARE(h.dialog->windowTitle(), QStringLiteral("Extra Descriptions [0/127]"));
    QCOMPARE(marl::test::lines(h.list()), lines);
    QCOMPARE(h.enabledButtons(), buttons);
    QVERIFY(h.list()->font().fixedPitch());
    QVERIFY(h.dialog->parent() == nullptr);
    QVERIFY(!h.dialog->changed());
}

void ExtraDescsDialogTest::variantsDifferOnlyInNames() {
    for (bool room : {true, false}) {
        Harness h;
        h.open(0, room);
        QCOMPARE(h.dialog->objectName(),
                 room ? QStringLiteral("formRoomExtraDescs") : QStringLiteral("formObjectExtraDescs"));
        QCOMPARE(h.in<QGroupBox>("frameExtraDescs")->title(),
                 room ? QStringLiteral("Room Extra Descriptions")
                      : QStringLiteral("Object Extra Descriptions"));
        QCOMPARE(h.in<QGroupBox>("frameKeywords")->title(), QStringLiteral("Extra Description Keywords"));
        QCOMPARE(h.in<QGroupBox>("frameExtraDesc")->title(), QStringLiteral("Extra Description"));
        const QList<QPair<const char*, const char*>> captions{
            {"buttonAdd", "Add"},         {"buttonUpdate", "Update"},       {"buttonEdit", "Edit"},
            {"buttonRemove", "Remove"},   {"buttonRemoveAll", "Remove All"}, {"buttonClearAll", "Clear All"},
            {"buttonDone", "Done"},       {"buttonCancel", "Cancel"}};
        for (const auto& [name, caption] : captions)
            QCOMPARE(h.in<QPushButton>(name)->text(), QString::fromLatin1(caption));
    }
}

void ExtraDescsDialogTest::addAndUpdateNeedKeywords_data() {
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<bool>("add");
    QTest::newRow("keywords") << QStringList{"textKeywords:type:bell"} << true;
    QTest::newRow("description alone") << QStringList{"textDesc:type:Green."} << false;
    QTest::newRow("keywords, then description")
        << QStringList{"textKeywords:type:bell", "textDesc:type:Green."} << true;
    QTest::newRow("description, then keywords")
        << QStringList{"textDesc:type:Green.", "textKeywords:type:bell"} << true;
    QTest::newRow("keywords erased after the description")
        << QStringList{"textDesc:type:Green.", "textKeywords:type:b", "textKeywords:backspace"} << false;
    QTest::newRow("description erased: the field changed last is empty")
        << QStringList{"textKeywords:type:bell", "textDesc:type:G", "textDesc:backspace"} << false;
}

void ExtraDescsDialogTest::addAndUpdateNeedKeywords() {
    QFETCH(QStringList, steps);
    QFETCH(bool, add);
    Harness h;
    h.fill(0, {"ladder", "pot"});
    h.open(0);
    run(h.dialog, steps);
    QCOMPARE(h.enabled("buttonAdd"), add);
    QVERIFY(!h.enabled("buttonUpdate"));
    // The same rule holds for Update while a pair is being edited.
    clickLine(h.list(), 1);
    click(h.in<QPushButton>("buttonEdit"));
    erase(h.in<QLineEdit>("textKeywords"));
    erase(h.in<QPlainTextEdit>("textDesc"));
    run(h.dialog, steps);
    QCOMPARE(h.enabled("buttonUpdate"), add);
    QVERIFY(!h.enabled("buttonAdd"));
}

void ExtraDescsDialogTest::addStoresAtOnce() {
    Harness h;
    h.fill(0, {"ladder"});
    h.open(0);
    type(h.in<QLineEdit>("textKeywords"), "stew pot");
    type(h.in<QPlainTextEdit>("textDesc"), "A black pot.\nIt bubbles.");
    click(h.in<QPushButton>("buttonAdd"));
    QCOMPARE(h.records[0][1], (ExtraDesc{"stew pot", "A black pot.\r\nIt bubbles."}));
    QCOMPARE(h.records[0][2], ExtraDesc{});
    QCOMPARE(marl::test::lines(h.list()), QStringList({"ladder", "stew pot"}));
    QCOMPARE(h.in<QLineEdit>("textKeywords")->text(), QString());
    QCOMPARE(h.in<QPlainTextEdit>("textDesc")->toPlainText(), QString());
    QCOMPARE(h.enabledButtons(), QStringLiteral("RemoveAll ClearAll Done Cancel"));
    QCOMPARE(h.hasChangedCalls, 1);
    QCOMPARE(h.dialog->count(), 2);
    // Nothing is pending: Done closes without a message and frees the owner.
    click(h.in<QPushButton>("buttonDone"));
    MARL_VERIFY_PROMPTS(h.prompts);
    QVERIFY(!h.dialog->isVisible());
    QVERIFY(h.owner.isEnabled());
}

void ExtraDescsDialogTest::addStopsAt127Pairs_data() {
    QTest::addColumn<int>("pairs");
    QTest::addColumn<bool>("addAtOpening");
    QTest::newRow("126 pairs: one more") << 126 << true;
    QTest::newRow("127 pairs: full") << 127 << false;
}

void ExtraDescsDialogTest::addStopsAt127Pairs() {
    QFETCH(int, pairs);
    QFETCH(bool, addAtOpening);
    Harness h;
    QStringList keywords;
    for (int i = 0; i < pairs; ++i)
        keywords.append(QStringLiteral("k%1").arg(i));
    h.fill(0, keywords);
    h.open(0);
    QCOMPARE(h.list()->count(), pairs);
    type(h.in<QLineEdit>("textKeywords"), "last");
    QCOMPARE(h.enabled("buttonAdd"), addAtOpening);
    click(h.in<QPushButton>("buttonAdd"));
    QCOMPARE(h.list()->count(), kMaxExtraDescs);
    QCOMPARE(h.records[0][127], ExtraDesc{});  // the slot that ends the list stays empty
    type(h.in<QLineEdit>("textKeywords"), "more");
    QVERIFY(!h.enabled("buttonAdd"));
}

void ExtraDescsDialogTest::editAndUpdate_data() {
    QTest::addColumn<bool>("doubleClick");
    QTest::newRow("Edit button") << false;
    QTest::newRow("double click") << true;
}

void ExtraDescsDialogTest::editAndUpdate() {
    QFETCH(bool, doubleClick);
    Harness h;
    h.fill(0, {"a", "b", "c", "d", "e", "f"});
    h.open(0);
    if (doubleClick) {
        doubleClickLine(h.list(), 4);
    } else {
        clickLine(h.list(), 4);
        QVERIFY(h.enabled("buttonEdit"));
        QVERIFY(h.enabled("buttonRemove"));
        click(h.in<QPushButton>("buttonEdit"));
    }
    QCOMPARE(h.dialog->windowTitle(), QStringLiteral("Extra Descriptions [4/127]"));
    QCOMPARE(h.in<QLineEdit>("textKeywords")->text(), QStringLiteral("e"));
    QCOMPARE(h.in<QPlainTextEdit>("textDesc")->toPlainText(), QStringLiteral("desc 4"));
    QVERIFY(h.dialog->editing());
    QVERIFY(!h.enabled("buttonAdd"));
    QVERIFY(h.enabled("buttonUpdate"));
    QVERIFY(!h.dialog->changed());

    type(h.in<QLineEdit>("textKeywords"), " east");
    click(h.in<QPushButton>("buttonUpdate"));
    QCOMPARE(h.records[0][4], (ExtraDesc{"e east", "desc 4"}));
    QCOMPARE(h.list()->item(4)->text(), QStringLiteral("e east"));
    QCOMPARE(h.list()->count(), 6);
    QVERIFY(!h.dialog->editing());
    QVERIFY(!h.dialog->changed());
    QCOMPARE(h.in<QLineEdit>("textKeywords")->text(), QString());
    // Only Add marks the owner's record changed.
    QCOMPARE(h.hasChangedCalls, 0);
}

void ExtraDescsDialogTest::updateWithNoSelectedLineStoresNothing() {
    Harness h;
    h.fill(0, {"a", "b", "c"});
    h.open(0);
    clickLine(h.list(), 1);
    click(h.in<QPushButton>("buttonEdit"));
    click(h.in<QPushButton>("buttonRemove"));
    QCOMPARE(h.list()->selectedItems().size(), 0);
    type(h.in<QLineEdit>("textKeywords"), "zzz");
    QVERIFY(h.enabled("buttonUpdate"));  // still editing, but no line is chosen
    const Pairs before = h.records[0];
    click(h.in<QPushButton>("buttonUpdate"));
    QVERIFY(h.records[0] == before);
    QCOMPARE(marl::test::lines(h.list()), QStringList({"a", "c"}));
    // A double click that leaves no line selected edits nothing either.
    emit h.list()->itemDoubleClicked(h.list()->item(0));
    QCOMPARE(h.in<QLineEdit>("textKeywords")->text(), QStringLiteral("zzz"));
}

void ExtraDescsDialogTest::removeFirstOfThree() {
    Harness h;
    h.fill(0, {"a", "b", "c"});
    h.open(0);
    clickLine(h.list(), 0);
    click(h.in<QPushButton>("buttonRemove"));
    QCOMPARE(h.records[0][0], (ExtraDesc{"b", "desc 1"}));
    QCOMPARE(h.records[0][1], (ExtraDesc{"c", "desc 2"}));
    QCOMPARE(h.records[0][2], ExtraDesc{});
    QCOMPARE(marl::test::lines(h.list()), QStringList({"b", "c"}));
    QCOMPARE(h.enabledButtons(), QStringLiteral("RemoveAll ClearAll Done Cancel"));
    QCOMPARE(h.dialog->count(), 2);
    click(h.in<QPushButton>("buttonDone"));
    MARL_VERIFY_PROMPTS(h.prompts);
    QVERIFY(!h.dialog->isVisible());
}

void ExtraDescsDialogTest::removeAllTouchesOnlyThisRecord() {
    Harness h;
    h.fill(0, {"x", "y"});
    h.fill(1, {"a", "b", "c"});
    h.open(1);
    click(h.in<QPushButton>("buttonRemoveAll"));
    MARL_VERIFY_PROMPTS(h.prompts);  // no confirmation
    QVERIFY(h.records[1] == Pairs{});
    QCOMPARE(h.records[0][1].Keywords, std::string("y"));
    QCOMPARE(h.list()->count(), 0);
    QCOMPARE(h.dialog->count(), 0);
    QCOMPARE(h.enabledButtons(), QStringLiteral("ClearAll Done Cancel"));
}

void ExtraDescsDialogTest::tildeCannotBeTyped() {
    Harness h;
    h.open(0);
    type(h.in<QLineEdit>("textKeywords"), "bell~pole");
    type(h.in<QPlainTextEdit>("textDesc"), "Green~ish.");
    QCOMPARE(h.in<QLineEdit>("textKeywords")->text(), QStringLiteral("bellpole"));
    QCOMPARE(h.in<QPlainTextEdit>("textDesc")->toPlainText(), QStringLiteral("Greenish."));
}

void ExtraDescsDialogTest::clearAll() {
    Harness h;
    h.fill(0, {"a"});
    h.open(0);
    type(h.in<QLineEdit>("textKeywords"), "bell");
    h.prompts.answer({false, true});
    click(h.in<QPushButton>("buttonClearAll"));
    QCOMPARE(h.in<QLineEdit>("textKeywords")->text(), QStringLiteral("bell"));
    click(h.in<QPushButton>("buttonClearAll"));
    MARL_VERIFY_PROMPTS(h.prompts);
    QCOMPARE(h.prompts.records.size(), 2);
    QCOMPARE(h.prompts.records[0].text, QStringLiteral("Really Clear This Form?"));
    QCOMPARE(h.prompts.records[0].title, QStringLiteral("Confirm Clear"));
    QCOMPARE(h.in<QLineEdit>("textKeywords")->text(), QString());
    QCOMPARE(h.enabledButtons(), QStringLiteral("RemoveAll ClearAll Done Cancel"));
    QVERIFY(h.dialog->changed());
    QCOMPARE(h.dialog->focusWidget(), h.in<QLineEdit>("textKeywords"));
}

void ExtraDescsDialogTest::waysOut_data() {
    QTest::addColumn<bool>("room");
    QTest::addColumn<bool>("pending");
    QTest::addColumn<QString>("how");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QString>("message");
    QTest::addColumn<bool>("closes");
    QTest::addColumn<int>("hasChanged");
    const QString notAdded = "Changes to Desc Not Saved.\r\nEither Add/Update or Use Cancel.";
    const QString cancel = "Changes to Desc Not Saved.\r\nCancel Anyway?";
    QTest::newRow("done, nothing pending") << true << false << "buttonDone" << "" << "" << true << 0;
    QTest::newRow("room: done with text pending")
        << true << true << "buttonDone" << "" << notAdded << false << 1;
    QTest::newRow("object: done with text pending")
        << false << true << "buttonDone" << "" << notAdded << false << 0;
    QTest::newRow("cancel, nothing pending") << true << false << "buttonCancel" << "" << "" << true
                                             << 0;
    QTest::newRow("cancel, pending, No") << true << true << "buttonCancel" << "n" << cancel << false
                                         << 0;
    QTest::newRow("cancel, pending, Yes") << false << true << "buttonCancel" << "y" << cancel << true
                                          << 0;
    QTest::newRow("frame, pending, No") << true << true << "frame" << "n" << cancel << false << 0;
    QTest::newRow("frame, pending, Yes") << true << true << "frame" << "y" << cancel << true << 0;
    QTest::newRow("escape, nothing pending") << false << false << "escape" << "" << "" << true << 0;
}

void ExtraDescsDialogTest::waysOut() {
    QFETCH(bool, room);
    QFETCH(bool, pending);
    QFETCH(QString, how);
    QFETCH(QString, answer);
    QFETCH(QString, message);
    QFETCH(bool, closes);
    QFETCH(int, hasChanged);
    Harness h;
    h.fill(0, {"a"});
    h.open(0, room);
    if (pending)
        type(h.in<QPlainTextEdit>("textDesc"), "typed");
    if (!answer.isEmpty())
        h.prompts.answer({answer == "y"});
    if (how == "buttonDone" && pending)
        h.prompts.expectTells(1);
    if (how == "frame")
        h.dialog->close();
    else if (how == "escape")
        QTest::keyClick(h.in<QLineEdit>("textKeywords"), Qt::Key_Escape);
    else
        click(h.in<QPushButton>(qPrintable(how)));

    MARL_VERIFY_PROMPTS(h.prompts);
    QCOMPARE(h.prompts.records.size(), message.isEmpty() ? 0 : 1);
    if (!message.isEmpty()) {
        QCOMPARE(h.prompts.records[0].text, message);
        QCOMPARE(h.prompts.records[0].title, QStringLiteral("Desc Not Saved"));
    }
    QCOMPARE(h.dialog->isVisible(), !closes);
    QCOMPARE(h.owner.isEnabled(), closes);
    QCOMPARE(h.hasChangedCalls, hasChanged);
    QCOMPARE(h.records[0][0], (ExtraDesc{"a", "desc 0"}));
}

QTEST_MAIN(ExtraDescsDialogTest)
#include "extra_descs_dialog_test.moc"
