// Saving in the object editor: writes that fail, every stock object stored
// from the window and read back, and a builder's whole session on real zone
// files.

#include "test_main.h"

#include "form_object_fixture.h"
#include "save_checks.h"

using namespace marl;
using namespace marl::test;

class FormObjectSaveTest : public QObject {
    Q_OBJECT
private slots:
    void failedWritesKeepFileAndTable_data();
    void failedWritesKeepFileAndTable();
    void stockObjectsSurviveTheWindow_data();
    void stockObjectsSurviveTheWindow();
    void wholeSession_data();
    void wholeSession();
};

namespace {

// An object's values, whatever bytes it was read from: the flags as sets.
ObjectRecord values(ObjectRecord object) {
    object.Source.clear();
    object.EBitV = std::to_string(flagBits(object.EBitV));
    object.WBitV = std::to_string(flagBits(object.WBitV));
    return object;
}

} // namespace

void FormObjectSaveTest::failedWritesKeepFileAndTable_data() {
    QTest::addColumn<QStringList>("command");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("after"); // the file once the write goes through
    const QString first = "9500 a long sword t5 g/an 0,2,6,3 8/100/10 A=18:1,19:2";
    const QString second = "9501 an iron chest t15 0/a 60,13,9510,0 80/150/10 E=chest lock";
    const QString third = "9502 a green potion t10 g/ao 12,16,14,-1 1/200/5 ad=19";
    const QString changed = QString(first).replace("8/100/10", "8/9/10");
    QTest::newRow("save over the object")
        << QStringList{"yes", "buttonSave:click"} << "Object Not Saved"
        << QStringList{changed, second, third}.join("; ");
    QTest::newRow("save a new object")
        << QStringList{"textVNum:erase", "textVNum:type:9599", "buttonSave:click"}
        << "Object Not Saved"
        << QStringList{first, second, third, QString(changed).replace("9500", "9599")}.join("; ");
    // Deleting the object shown asks to discard its changes.
    QTest::newRow("delete") << QStringList{"listObjectSelect:line:1", "yes", "yes",
                                           "buttonDelete:click"}
                            << "Object Not Deleted" << QStringList{second, third}.join("; ");
}

void FormObjectSaveTest::failedWritesKeepFileAndTable() {
    QFETCH(QStringList, command);
    QFETCH(QString, title);
    QFETCH(QString, after);
    ObjectSession s(smallObjects(), 95, "zone");
    QVERIFY(s.opened);
    MARL_PLAY(s.playAll({"textCost:erase", "textCost:type:9"}));
    checkFailedWrite(
        s, objectTable(), command, title,
        "listObjectSelect=9500\ta long sword/9501\tan iron chest/9502\ta green potion, "
        "textCost=9, buttonSave, changed=x, count=3",
        after);
}

void FormObjectSaveTest::stockObjectsSurviveTheWindow_data() {
    stockFileRows(".obj");
}

void FormObjectSaveTest::stockObjectsSurviveTheWindow() {
    checkRecordsSurviveTheWindow<ObjectSession>(readObjects, values);
}

void FormObjectSaveTest::wholeSession_data() {
    QTest::addColumn<QString>("source");
    QTest::newRow("small zone") << "";
    QTest::newRow("project example") << examplesDir() + "/95.obj";
    QTest::newRow("stock 30.obj") << corpusDir() + "/30.obj";
}

// Open a copy of a zone file; change the first object's cost, flags and
// type, give it an extra description and an action description; add an
// object; delete the second; read the file's bytes.
void FormObjectSaveTest::wholeSession() {
    QFETCH(QString, source);
    if (!source.isEmpty() && !QFile::exists(source))
        QSKIP(qPrintable(source + " is not here"));
    const std::string original = source.isEmpty() ? smallObjects() : readBytes(source);
    const std::string eol = original.find("\r\n") != std::string::npos ? "\r\n" : "\n";
    ObjectTable before;
    const int count = readObjects(original, before);
    QVERIFY(count >= 3);
    const int zone = before[0].VNum / 100;
    // The new object's VNum: the zone's first free one from 98 down.
    const auto taken = [&](int suffix) {
        for (int slot = 0; slot < count; ++slot)
            if (before[slot].VNum == zone * 100 + suffix)
                return true;
        return false;
    };
    int suffix = 98;
    while (taken(suffix))
        --suffix;
    const std::string vnum = std::to_string(zone * 100 + suffix);
    ObjectSession s(original, zone);
    QVERIFY(s.opened);

    MARL_PLAY(s.playAll({"textCost:erase",
                         "textCost:type:77",
                         "checkHold:click",
                         "checkHold:click",
                         "checkHold:click",
                         "optionTreasure:click",
                         "buttonEDescs:click",
                         ">formObjectExtraDescs",
                         "textKeywords:type:gem",
                         "textDesc:type:Red.",
                         "buttonAdd:click",
                         "buttonDone:click",
                         ">",
                         "buttonADesc:click",
                         ">formObjectActionDesc",
                         "yes",
                         "buttonClearAll:click",
                         "textDesc:type:Swish.",
                         "buttonDone:click",
                         ">",
                         "yes",
                         "buttonSave:click",
                         "?changed=-",
                         "buttonNew:click",
                         "textVNum:type:" + QString::number(suffix),
                         "textAlias:type:rat bone",
                         "textSDesc:type:a rat bone",
                         "optionTrash:click",
                         "checkTake:click",
                         "buttonSave:click",
                         "listObjectSelect:dclick:1",
                         "listObjectSelect:line:1",
                         "yes",
                         "buttonDelete:click",
                         "?said=Confirm Clear: Really Clear This Form? | Overwrite Existing "
                         "Object: Overwrite Existing Object? | Confirm Delete: Really Delete "
                         "This Object?\r\n" +
                             QString::number(before[1].VNum) + ' ' + fromBytes(before[1].SDesc)}));

    // The first object holds the session's changes, in the file's own line ends.
    const std::string written = s.bytes();
    const std::string first = written.substr(0, written.find(eol + "#", 1) + eol.size());
    const ObjectRecord& old = before[0];
    const FlagBits wears = flagBits(old.WBitV) ^ (FlagBits{1} << flagBit('o'));
    std::string affects;
    for (std::size_t i = 0; i < old.Affects.count(); ++i)
        affects += "A" + eol + std::to_string(old.Affects[i].Location) + " " +
                   std::to_string(old.Affects[i].Modifier) + eol;
    const std::string valueLine =
        std::to_string(old.Values[0]) + " " + std::to_string(old.Values[1]) + " " +
        std::to_string(old.Values[2]) + " " + std::to_string(old.Values[3]);
    for (const std::string& part :
         {"#" + std::to_string(old.VNum) + eol + old.Alias + "~" + eol + old.SDesc + "~" + eol +
              old.LDesc + "~" + eol + "Swish.~" + eol + "8 " +
              flagText(kEffectFlags, flagBits(old.EBitV)) + " " + flagText(kWearFlags, wears) +
              eol + valueLine + eol + std::to_string(old.Weight) + " 77 " +
              std::to_string(old.RPD) + eol,
          "E" + eol + "gem~" + eol + "Red." + eol + "~" + eol + affects})
        QVERIFY2(first.find(part) != std::string::npos, part.c_str());
    for (std::size_t i = 0; i < old.ExtraDescs.count(); ++i) {
        const std::string extra = eol + "E" + eol + old.ExtraDescs[i].Keywords + "~" + eol;
        QVERIFY2(first.find(extra) != std::string::npos, extra.c_str());
    }

    // The new object in its place by number, the second one gone, every
    // other as it was.
    const std::string rat = "#" + vnum + eol + "rat bone~" + eol + "a rat bone~" + eol + "~" +
                            eol + "~" + eol + "13 0 a" + eol + "0 0 0 0" + eol + "0 0 0" + eol;
    QVERIFY2(written.find(rat) != std::string::npos, written.c_str());
    ObjectTable after;
    QCOMPARE(readObjects(written, after), count);
    QCOMPARE(firstOutOfOrder(after, count), -1);
    for (int slot = 1, old = 2; slot < count; ++slot)
        if (after[slot].VNum != std::stoi(vnum))
            QVERIFY2(values(after[slot]) == values(before[old++]),
                     qPrintable(QString::number(after[slot].VNum)));
    MARL_PLAY(s.playAll({"buttonDone:click", "?closed=1"}));
}

MARL_TEST_MAIN(FormObjectSaveTest)
#include "form_object_save_test.moc"
