// Every editor and dialog fits a 1024 x 768 screen, less a title bar and a
// panel, whatever fonts the builder's desktop has.  The test chooses the
// fonts itself: run without MARL_FONT_SET it runs itself once per font set,
// each time under a fontconfig configuration of its own that knows only that
// set's fonts, so that every machine gives the same answer.

#include "test_main.h"

#include "sessions.h"

#include <QFile>
#include <QFontInfo>
#include <QProcess>
#include <QScrollBar>

using namespace marl;
using namespace marl::test;

namespace {

// A desktop's fonts: where their package puts them, the family windows are
// drawn in, and what "Courier New" resolves to there.
struct FontSet {
    const char* name;
    const char* package;
    const char* folders; // ' ' between folders
    const char* sans;
    const char* mono;
};

constexpr FontSet kFontSets[] = {
    {"dejavu", "fonts-dejavu-core", "/usr/share/fonts/truetype/dejavu", "DejaVu Sans",
     "DejaVu Sans Mono"},
    {"liberation", "fonts-liberation", "/usr/share/fonts/truetype/liberation", "Liberation Sans",
     "Liberation Mono"},
    {"noto", "fonts-noto-core fonts-noto-mono", "/usr/share/fonts/truetype/noto", "Noto Sans",
     "Noto Mono"},
    {"urw", "fonts-urw-base35", "/usr/share/fonts/opentype/urw-base35", "Nimbus Sans",
     "Nimbus Mono PS"},
};

const FontSet* chosenSet() {
    const QByteArray name = qgetenv("MARL_FONT_SET");
    for (const FontSet& set : kFontSets)
        if (name == set.name)
            return &set;
    return nullptr;
}

// Before the application starts: fontconfig reads its configuration once.
const bool kFontsChosen = [] {
    const FontSet* set = chosenSet();
    if (!set)
        return false;
    static QTemporaryDir folder;
    const QString dir = folder.path();
    QString dirs;
    for (const QString& folder : QString::fromLatin1(set->folders).split(' '))
        dirs += "<dir>" + folder + "</dir>";
    const QString alias = "<alias binding=\"same\"><family>%1</family>"
                          "<prefer><family>%2</family></prefer></alias>";
    QFile conf(dir + "/fonts.conf");
    if (!conf.open(QIODevice::WriteOnly))
        return false;
    conf.write(("<?xml version=\"1.0\"?><fontconfig>" + dirs + "<cachedir>" + dir + "</cachedir>" +
                alias.arg("sans-serif", set->sans) + alias.arg("Sans Serif", set->sans) +
                alias.arg("monospace", set->mono) + alias.arg("Courier New", set->mono) +
                "</fontconfig>")
                   .toUtf8());
    qputenv("FONTCONFIG_FILE", (dir + "/fonts.conf").toLocal8Bit());
    return true;
}();

// The size a window manager lets it shrink to: its least size, then the
// window resized to 1 x 1, which the layout holds at that least.
QSize leastSize(QWidget* window) {
    window->resize(1, 1);
    QCoreApplication::processEvents();
    return window->size().expandedTo(window->minimumSizeHint());
}

} // namespace

// Opens `window` in a kind's editor by `steps` and checks that it fits the
// screen at its least size.
template <typename Session>
void checkFit(Session&& s, const QStringList& steps, const QString& window, const QString& grows,
              const char* setName) {
    MARL_PLAY(s.playAll(steps));
    QWidget* shown = s.editor->objectName() == window ? s.editor.data() : topLevel(window);
    QVERIFY2(shown, qPrintable(window + " did not open"));
    const QSize least = leastSize(shown);
    qInfo("%s %s: %d x %d (%d pt)", setName, qPrintable(window), least.width(), least.height(),
          QApplication::font().pointSize());
    QVERIFY2(least.width() <= 1000 && least.height() <= 680,
             qPrintable(QString("%1 x %2").arg(least.width()).arg(least.height())));
    if (window == "formRoom") { // stock descriptions are 80 columns wide
        auto* desc = find<QPlainTextEdit>(shown, "textDesc");
        QVERIFY(desc->viewport()->width() - 2 * desc->document()->documentMargin() >=
                QFontMetrics(desc->font()).horizontalAdvance(QString(80, 'M')));
    }
    // At its least the editor's list shows its lines whole; what the window
    // gains goes to the list and the texts.
    QList<QWidget*> growing;
    QList<QSize> before;
    for (const QString& what : grows.split(' ', Qt::SkipEmptyParts)) {
        growing << find(shown, what.section(':', 0, 0));
        QVERIFY2(growing.back(), qPrintable(what));
        before << growing.back()->size();
    }
    if (auto* list = find<QListWidget>(shown, grows.section(':', 0, 0)))
        QCOMPARE(list->horizontalScrollBar()->maximum(), 0);
    shown->resize(least + QSize(300, 200));
    QCoreApplication::processEvents();
    for (qsizetype i = 0; i < growing.size(); ++i)
        QVERIFY2(grows.split(' ')[i].endsWith('w') ? growing[i]->width() > before[i].width()
                                                   : growing[i]->height() > before[i].height(),
                 qPrintable(grows.split(' ')[i]));
}

class WindowsFitTest : public QObject {
    Q_OBJECT
private slots:
    void eachFontSet_data();
    void eachFontSet();
    void fits_data();
    void fits();
};

void WindowsFitTest::eachFontSet_data() {
    QTest::addColumn<QString>("set");
    for (const FontSet& set : kFontSets)
        QTest::newRow(set.name) << set.name;
}

void WindowsFitTest::eachFontSet() {
    QFETCH(QString, set);
    if (chosenSet())
        QSKIP("run by the test without a font set");
    QProcess run;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("MARL_FONT_SET", set);
    run.setProcessEnvironment(env);
    run.setProcessChannelMode(QProcess::MergedChannels);
    run.start(QCoreApplication::applicationFilePath(), {"windows_fit_test", "fits"});
    QVERIFY(run.waitForFinished(120000));
    const QString out = QString::fromLocal8Bit(run.readAll());
    if (qEnvironmentVariableIsSet("MARL_FIT_SIZES"))
        qInfo().noquote() << out;
    QVERIFY2(run.exitCode() == 0, qPrintable(out));
}

void WindowsFitTest::fits_data() {
    // The kind's editor on its small zone, the steps that open the window
    // through its buttons (`>name` steps into a dialog), and the window.
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QString>("window");
    QTest::addColumn<QString>("grows"); // of what the window gains: "control:w" width, ":h" height
    const QString room = "listRoomSelect:dclick:1", mobile = "listMobileSelect:dclick:0",
                  object = "listObjectSelect:dclick:", values = "buttonValues:click";
    // clang-format off
    QTest::newRow("room editor") << "wld" << QStringList{room} << "formRoom"
        << "listRoomSelect:w textDesc:w textDesc:h";
    QTest::newRow("shop editor") << "shp" << QStringList{"listShopSelect:dclick:1"} << "formShop"
        << "listShopSelect:w listShopSelect:h textNoSuchItemKeeper:w listProducts:h";
    QTest::newRow("exit dialog") << "wld" << QStringList{room, "buttonExitWest:click"} << "formRoomDoor" << "";
    QTest::newRow("room extra descriptions") << "wld" << QStringList{room, "buttonExtraDescs:click"}
        << "formRoomExtraDescs" << "";
    QTest::newRow("mobile editor") << "mob" << QStringList{mobile} << "formMobile"
        << "listMobileSelect:w listMobileSelect:h textAlias:w";
    QTest::newRow("action flags") << "mob" << QStringList{mobile, "buttonActionBitV:click"}
        << "formMobileAction" << "";
    QTest::newRow("affect flags") << "mob" << QStringList{mobile, "buttonAffectBitV:click"}
        << "formMobileAffect" << "";
    QTest::newRow("extended specs") << "mob" << QStringList{mobile, "buttonESpecs:click"}
        << "formMobileESpecs" << "";
    QTest::newRow("mobile description") << "mob" << QStringList{mobile, "buttonDDesc:click"}
        << "formMobileDesc" << "";
    QTest::newRow("object editor") << "obj" << QStringList{object + "0"} << "formObject"
        << "listObjectSelect:w listObjectSelect:h textAlias:w";
    QTest::newRow("object values") << "obj" << QStringList{object + "0", values} << "formObjectValues" << "";
    QTest::newRow("object affects") << "obj" << QStringList{object + "0", "buttonObjectAffects:click"}
        << "formObjectAffects" << "";
    QTest::newRow("object extra descriptions") << "obj" << QStringList{object + "0", "buttonEDescs:click"}
        << "formObjectExtraDescs" << "";
    QTest::newRow("object action description") << "obj" << QStringList{object + "0", "buttonADesc:click"}
        << "formObjectActionDesc" << "";
    QTest::newRow("weapon types") << "obj"
        << QStringList{object + "0", values, ">formObjectValues", "buttonWeaponType:click"} << "formObjectWType" << "";
    QTest::newRow("container state") << "obj"
        << QStringList{object + "1", values, ">formObjectValues", "buttonContainerState:click"}
        << "formObjectContainerState" << "";
    QTest::newRow("zone editor") << "zon" << QStringList{"listCommands:line:1"} << "formZone"
        << "listCommands:w listCommands:h";
    QTest::newRow("spells") << "obj"
        << QStringList{object + "2", values, ">formObjectValues", "buttonScrollPotionS1:click"}
        << "formObjectSpells" << "";
    QTest::newRow("liquids") << "obj" << QStringList{object + "1", "optionDrinkCon:click", values,
        ">formObjectValues", "buttonDrinkConFountainLiquid:click"} << "formObjectLiquids" << "";
    // clang-format on
}

void WindowsFitTest::fits() {
    QFETCH(QString, kind);
    QFETCH(QStringList, steps);
    QFETCH(QString, window);
    QFETCH(QString, grows);
    const FontSet* set = chosenSet();
    if (!set)
        QSKIP("run under each font set by eachFontSet");
    QVERIFY2(kFontsChosen, "cannot write the fontconfig configuration");
    // The desktop's default size, in the set's family.
    QFont font = QApplication::font();
    font.setFamily(QString::fromLatin1(set->sans));
    QApplication::setFont(font);
    // Each set's fonts are there (`make` installs them) and "Courier New"
    // is what that desktop makes of it.
    // (Qt adds a foundry, " [UKWN]", to a family some fonts name twice.)
    const auto family = [](const QFont& asked) {
        return QFontInfo(asked).family().section(" [", 0, 0);
    };
    QVERIFY2(family(font) == set->sans,
             qPrintable(QString("%1 is missing: install %2").arg(set->sans, set->package)));
    QCOMPARE(family(fixedFont()), QString::fromLatin1(set->mono));

    if (kind == "wld")
        checkFit(EditorSession(smallZone()), steps, window, grows, set->name);
    else if (kind == "mob")
        checkFit(MobileSession(smallMobiles()), steps, window, grows, set->name);
    else if (kind == "shp")
        checkFit(ShopSession(smallShops()), steps, window, grows, set->name);
    else if (kind == "zon")
        checkFit(ZoneSession(lfLines("#95|The Landing~|9500 9599 30 2|* Mobiles|M 0 9500 1 9500|"
                                     "G 1 9500 1|D 0 9501 3 1|S|$")),
                 steps, window, grows, set->name);
    else
        checkFit(ObjectSession(smallObjects()), steps, window, grows, set->name);
}

MARL_TEST_MAIN(WindowsFitTest)
#include "windows_fit_test.moc"
