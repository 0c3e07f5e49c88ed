// Saving in the mobile editor: writes that fail, every stock mobile stored
// from the window and read back, and a builder's whole session on real zone
// files.

#include "test_main.h"

#include "form_mobile_fixture.h"
#include "save_checks.h"

using namespace marl;
using namespace marl::test;

class FormMobileSaveTest : public QObject {
    Q_OBJECT
private slots:
    void failedWritesKeepFileAndTable_data();
    void failedWritesKeepFileAndTable();
    void stockMobilesSurviveTheWindow_data();
    void stockMobilesSurviveTheWindow();
    void wholeSession_data();
    void wholeSession();
};

namespace {

// A mobile's values, whatever bytes it was read from: the flags as sets, and
// the type letter as the extended values make it.
MobileRecord values(MobileRecord mobile) {
    mobile.Source.clear();
    mobile.ActionBitV = std::to_string(flagBits(mobile.ActionBitV));
    mobile.AffectBitV = std::to_string(flagBits(mobile.AffectBitV));
    mobile.TypeLetter = hasExtendedValues(mobile) ? "E" : "S";
    return mobile;
}

} // namespace

void FormMobileSaveTest::failedWritesKeepFileAndTable_data() {
    QTest::addColumn<QStringList>("command");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("after"); // the file once the write goes through
    const QString first = "9500 the old ferryman b/0 350S 5/17/6 2d8+30 1d4+1 25/400 8/8/1 dd=10";
    const QString second = "9501 a grey heron bg/0 0E 2/19/8 1d10+8 1d3+0 0/75 8/8/0 "
                           "BareHandAttack4 Dex16 dd=10";
    const QString third = "9502 the wiry cutpurse cfh/bt -450E 7/15/3 3d8+45 1d6+2 120/1100 "
                          "6/8/1 Str14 StrAdd20 dd=39";
    const QString changed = QString(first).replace(" 5/17", " 9/17");
    QTest::newRow("save over the mobile")
        << QStringList{"yes", "buttonSave:click"} << "Mobile Not Saved"
        << QStringList{changed, second, third}.join("; ");
    QTest::newRow("save a new mobile")
        << QStringList{"textVNum:erase", "textVNum:type:9599", "buttonSave:click"}
        << "Mobile Not Saved"
        << QStringList{first, second, third, QString(changed).replace("9500", "9599")}.join("; ");
    // Deleting the mobile shown asks to discard its changes.
    QTest::newRow("delete") << QStringList{"listMobileSelect:line:1", "yes", "yes",
                                           "buttonDelete:click"}
                            << "Mobile Not Deleted" << QStringList{second, third}.join("; ");
}

void FormMobileSaveTest::failedWritesKeepFileAndTable() {
    QFETCH(QStringList, command);
    QFETCH(QString, title);
    QFETCH(QString, after);
    MobileSession s(smallMobiles(), 95, "zone");
    QVERIFY(s.opened);
    MARL_PLAY(s.playAll({"textLevel:erase", "textLevel:type:9"}));
    checkFailedWrite(
        s, mobileTable(), command, title,
        "listMobileSelect=9500\tthe old ferryman/9501\ta grey heron/9502\tthe wiry cutpurse, "
        "textLevel=9, buttonSave, changed=x, count=3",
        after);
}

void FormMobileSaveTest::stockMobilesSurviveTheWindow_data() {
    stockFileRows(".mob");
    // Our example with extended lines as builders write them: keywords in
    // any case, no blank, values the server brings into range, a keyword it
    // does not know, lines it passes over; each kept as it stands.
    static QTemporaryDir dir;
    std::string bytes = readBytes(examplesDir() + "/95.mob");
    const std::string block = "BareHandAttack: 4\r\nDex: 16\r\n";
    bytes.replace(
        bytes.find(block), block.size(),
        "barehandattack:4\r\n* quick\r\n\r\nDEX: 16\r\nStr: 0\r\nCon: 99\r\nWings: 2\r\n");
    writeBytes(dir.filePath("95.mob"), bytes);
    QTest::newRow("extended lines by hand") << dir.filePath("95.mob");
}

void FormMobileSaveTest::stockMobilesSurviveTheWindow() {
    checkRecordsSurviveTheWindow<MobileSession>(readMobiles, values);
}

void FormMobileSaveTest::wholeSession_data() {
    QTest::addColumn<QString>("source");
    QTest::newRow("small zone") << "";
    QTest::newRow("project example") << examplesDir() + "/95.mob";
    QTest::newRow("stock 30.mob") << corpusDir() + "/30.mob";
}

// Open a copy of a zone file; change the first mobile's level, flags, attack
// and description; add a mobile; delete the second; read the file's bytes.
void FormMobileSaveTest::wholeSession() {
    QFETCH(QString, source);
    if (!source.isEmpty() && !QFile::exists(source))
        QSKIP(qPrintable(source + " is not here"));
    const std::string original = source.isEmpty() ? smallMobiles() : readBytes(source);
    const std::string eol = original.find("\r\n") != std::string::npos ? "\r\n" : "\n";
    MobileTable before;
    const int count = readMobiles(original, before);
    QVERIFY(count >= 3);
    const int zone = before[0].VNum / 100;
    MobileSession s(original, zone);
    QVERIFY(s.opened);

    MARL_PLAY(s.playAll({"textLevel:erase",
                         "textLevel:type:12",
                         "buttonActionBitV:click",
                         ">formMobileAction",
                         "checkAware:click",
                         "buttonDone:click",
                         ">",
                         "buttonESpecs:click",
                         ">formMobileESpecs",
                         "optionBHAPierce:click",
                         "buttonDone:click",
                         ">",
                         "buttonDDesc:click",
                         ">formMobileDesc",
                         "textDesc:type:Scarred.\n",
                         "buttonDone:click",
                         ">",
                         "yes",
                         "buttonSave:click",
                         "?changed=-",
                         "buttonNew:click",
                         "textVNum:type:98",
                         "textAlias:type:rat",
                         "textSDesc:type:a rat",
                         "textLDesc:type:A rat is here.",
                         "optionFemale:click",
                         "buttonSave:click",
                         "listMobileSelect:dclick:1",
                         "listMobileSelect:line:1",
                         "yes",
                         "buttonDelete:click",
                         "?said=Overwrite Existing Mobile: Overwrite Existing Mobile? | Confirm "
                         "Delete: Really Delete This Mobile?\r\n" +
                             QString::number(before[1].VNum) + ' ' + fromBytes(before[1].SDesc)}));

    // The first mobile holds the session's changes, in the file's own line ends.
    const std::string written = s.bytes();
    const std::string first = written.substr(0, written.find(eol + "#", 1) + eol.size());
    const MobileRecord& old = before[0];
    const FlagBits actions = flagBits(old.ActionBitV) | (FlagBits{1} << flagBit('e'));
    std::string desc = "Scarred." + eol + old.DDesc;
    for (std::size_t at = desc.find("\r\n"); eol == "\n" && at != std::string::npos;
         at = desc.find("\r\n", at))
        desc.replace(at, 2, "\n");
    for (const std::string& part :
         {"#" + std::to_string(old.VNum) + eol + old.Alias + "~" + eol + old.SDesc + "~" + eol,
          eol + desc + eol + "~" + eol,
          eol + flagText(kActionFlags, actions) + " " + old.AffectBitV + " " +
              std::to_string(old.Align) + " E" + eol + "12 " + std::to_string(old.THAC0) + " ",
          eol + "BareHandAttack: 11" + eol})
        QVERIFY2(first.find(part) != std::string::npos, part.c_str());
    QVERIFY(first.ends_with(eol + "E" + eol));

    // The new mobile at the end, the second one gone, every other as it was.
    const std::string rat = written.substr(written.rfind("#"));
    const std::string vnum = std::to_string(zone) + "98";
    for (const std::string& part :
         {"#" + vnum + eol + "rat~" + eol + "a rat~" + eol + "A rat is here." + eol + "~" + eol,
          eol + "0 0 0 S" + eol + "1 20 0 1d1+0 1d1+0" + eol + "0 0" + eol + "8 8 2" + eol + "$" +
              eol})
        QVERIFY2(rat.find(part) != std::string::npos, part.c_str());
    MobileTable after;
    QCOMPARE(readMobiles(written, after), count);
    for (int slot = 2; slot < count; ++slot)
        QVERIFY2(values(after[slot - 1]) == values(before[slot]),
                 qPrintable(QString::number(before[slot].VNum)));
    QCOMPARE(after[count - 1].VNum, std::stoi(vnum));
    MARL_PLAY(s.playAll({"buttonDone:click", "?closed=1"}));
}

MARL_TEST_MAIN(FormMobileSaveTest)
#include "form_mobile_save_test.moc"
