#include <QtTest>

#include "about/sys_info.h"
#include "test_support.h"

using namespace marl;
using marl::test::ScriptedPrompts;

namespace {

// A machine with exactly the programs the test installs.
class FakeLauncher : public ProgramLauncher {
public:
    QString findProgram(const QString& program) const override {
        return installed.contains(program) ? QStringLiteral("/opt/bin/") + program : QString();
    }
    bool startProgram(const QString& path, const QStringList& arguments) override {
        started.append(path + QLatin1Char(' ') + arguments.join(QLatin1Char(' ')));
        return startWorks;
    }

    QStringList installed;
    bool startWorks = true;
    QStringList started;  // path and arguments of every start tried
};

} // namespace

class SysInfoTest : public QObject {
    Q_OBJECT
private slots:
    void startsTheFirstInstalledTool_data();
    void startsTheFirstInstalledTool();
    void runningDesktopComesFirst_data();
    void runningDesktopComesFirst();
};

void SysInfoTest::startsTheFirstInstalledTool_data() {
    QTest::addColumn<QStringList>("installed");
    QTest::addColumn<bool>("startWorks");
    QTest::addColumn<QStringList>("started");
    QTest::addColumn<bool>("unavailable");
    const QStringList none;
    QTest::newRow("nothing installed") << none << true << none << true;
    QTest::newRow("first installed") << QStringList{"about", "probe"} << true
                                     << QStringList{"/opt/bin/about --system"} << false;
    QTest::newRow("only the last installed") << QStringList{"probe"} << true
                                             << QStringList{"/opt/bin/probe "} << false;
    QTest::newRow("installed but will not start")
        << QStringList{"about"} << false << QStringList{"/opt/bin/about --system"} << true;
    QTest::newRow("a failed start does not try the next")
        << QStringList{"about", "probe"} << false << QStringList{"/opt/bin/about --system"}
        << true;
}

void SysInfoTest::startsTheFirstInstalledTool() {
    QFETCH(QStringList, installed);
    QFETCH(bool, startWorks);
    QFETCH(QStringList, started);
    QFETCH(bool, unavailable);
    const QList<SysInfoTool> tools = {{QStringLiteral("about"), {QStringLiteral("--system")}},
                                      {QStringLiteral("overview"), {}},
                                      {QStringLiteral("probe"), {}}};
    FakeLauncher launcher;
    launcher.installed = installed;
    launcher.startWorks = startWorks;
    ScriptedPrompts prompts;
    prompts.expectTells(unavailable ? 1 : 0);

    QCOMPARE(StartSysInfo(launcher, prompts, tools), !unavailable);

    QCOMPARE(launcher.started, started);
    MARL_VERIFY_PROMPTS(prompts);
    QCOMPARE(prompts.records.size(), unavailable ? 1 : 0);
    if (unavailable) {
        QCOMPARE(prompts.records[0].text, QStringLiteral("System Information Is Unavailable At This Time"));
        QCOMPARE(prompts.records[0].title, QStringLiteral("Marl - Marlstone"));
        QVERIFY(!prompts.records[0].question);
    }
}

void SysInfoTest::runningDesktopComesFirst_data() {
    QTest::addColumn<QString>("desktops");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("last");
    QTest::newRow("GNOME") << "GNOME" << "gnome-control-center" << "cinnamon-settings";
    QTest::newRow("Ubuntu's GNOME") << "ubuntu:GNOME" << "gnome-control-center"
                                    << "cinnamon-settings";
    QTest::newRow("KDE") << "KDE" << "kinfocenter" << "cinnamon-settings";
    QTest::newRow("Xfce, any case") << "xfce" << "xfce4-about" << "cinnamon-settings";
    QTest::newRow("Cinnamon") << "X-Cinnamon" << "cinnamon-settings" << "xfce4-about";
    QTest::newRow("no desktop") << "" << "hardinfo2" << "cinnamon-settings";
    QTest::newRow("unknown desktop") << "LXQt" << "hardinfo2" << "cinnamon-settings";
}

void SysInfoTest::runningDesktopComesFirst() {
    QFETCH(QString, desktops);
    QFETCH(QString, first);
    QFETCH(QString, last);
    const QList<SysInfoTool> tools = freeDesktopSysInfoTools(desktops);
    QVERIFY(!tools.isEmpty());
    QCOMPARE(tools.first().program, first);
    QCOMPARE(tools.last().program, last);
    // Each program once, however many desktops share it.
    QSet<QString> programs;
    for (const SysInfoTool& tool : tools)
        programs.insert(tool.program);
    QCOMPARE(programs.size(), tools.size());
}

QTEST_GUILESS_MAIN(SysInfoTest)
#include "sys_info_test.moc"
