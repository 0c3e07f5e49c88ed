// The About box, and finding and starting the system-information tool.
#include "test_main.h"

#include <QtTest>

#include <QAction>
#include <QDesktopServices>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTemporaryDir>

#include "about/form_about.h"
#include "shell/form_main.h"
#include "test_support.h"

using namespace marl;
using namespace marl::test;

namespace {

// A machine with the tools and programs the test gives it.
class FakeLauncher : public ProgramLauncher {
public:
    QList<SysInfoTool> candidates() const override {
        return {{"about", {"--system"}}, {"overview", {}}, {"probe", {}}};
    }
    QString findProgram(const QString& program) const override {
        return installed.contains(program) ? "/opt/bin/" + program : QString();
    }
    bool startProgram(const QString& path, const QStringList& arguments) override {
        started << (path + ' ' + arguments.join(' ')).trimmed();
        return startWorks;
    }
    QStringList installed;
    bool startWorks = true;
    QStringList started;
};

// Stands in for the desktop's mail program and browser.
class UrlRecorder : public QObject {
    Q_OBJECT
public slots:
    void open(const QUrl& url) { opened.append(url); }

public:
    QList<QUrl> opened;
};

} // namespace

class FormAboutTest : public QObject {
    Q_OBJECT
    UrlRecorder urls;
    ScriptedPrompts prompts;
    FakeLauncher launcher;
    std::unique_ptr<FormAbout> about;

private slots:
    void initTestCase() {
        QStandardPaths::setTestModeEnabled(true);
        for (const char* scheme : {"mailto", "https"})
            QDesktopServices::setUrlHandler(QString::fromLatin1(scheme), &urls, "open");
    }

    void init() {
        prompts.reset();
        launcher = {};
        urls.opened.clear();
        about = std::make_unique<FormAbout>(prompts, launcher);
        about->show();
    }

    void cleanup() {
        MARL_VERIFY_PROMPTS(prompts);
        about.reset();
    }

    void titleAndVersion() {
        QCOMPARE(about->windowTitle(), QStringLiteral("About Marl - Marlstone"));
        QCOMPARE(about->findChild<QLabel*>("labelAppName")->text(),
                 QStringLiteral("Marl - Marlstone"));
        QCOMPARE(about->findChild<QLabel*>("labelAppVersion")->text(),
                 QStringLiteral("Version 0.3.1"));
    }

    void addressesOpenOnTheDesktop() {
        // A click, or Space once it has the focus, hands the address to the
        // desktop: a mail address as "mailto:" and the address, a web address
        // as it reads.
        for (const char* name :
             {"labelEMail", "labelCompanyEMail", "labelWebSite", "labelCompanyWebSite"})
            for (bool byKey : {false, true}) {
                auto* label = about->findChild<QLabel*>(name);
                urls.opened.clear();
                if (byKey) {
                    label->setFocus();
                    QTest::keyClick(label, Qt::Key_Space);
                } else {
                    QTest::mouseClick(label, Qt::LeftButton);
                }
                const QString prefix = QString(name).contains("EMail") ? "mailto:" : "";
                QCOMPARE(urls.opened, QList<QUrl>{QUrl(prefix + label->text())});
            }
    }

    void mainWindowComesBack_data() {
        QTest::addColumn<int>("key"); // 0: the frame's close button
        QTest::addColumn<int>("modifiers");
        QTest::newRow("Alt+O") << int(Qt::Key_O) << int(Qt::AltModifier);
        QTest::newRow("Enter") << int(Qt::Key_Return) << 0;
        QTest::newRow("Escape") << int(Qt::Key_Escape) << 0;
        QTest::newRow("frame's close button") << 0 << 0;
    }

    void mainWindowComesBack() {
        QFETCH(int, key);
        QFETCH(int, modifiers);
        QTemporaryDir progDir;
        ScriptedChooser chooser;
        FormMain main(progDir.path(), prompts, chooser);
        QPointer<FormAbout> box;
        main.setAboutFactory([&] { return box = new FormAbout(prompts, launcher); });
        main.show();
        main.findChild<QAction*>("menuHelpAbout")->trigger();
        QVERIFY(box && box->isVisible());
        QVERIFY(!main.isEnabled());
        QVERIFY2(box->isEnabled(), "the About box must not be disabled with the main window");

        // Access keys and Enter reach the window the builder is in.
        box->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(box));
        if (key)
            QTest::keyClick(box, Qt::Key(key), Qt::KeyboardModifiers(modifiers));
        else
            box->close();
        // An access key presses its button a moment later, as a click would look.
        QTRY_VERIFY2(box.isNull(), "the About box is destroyed when it closes");
        QVERIFY(main.isEnabled());
    }

    void systemInfoButton_data() {
        QTest::addColumn<QStringList>("installed");
        QTest::addColumn<bool>("startWorks");
        QTest::addColumn<QStringList>("started"); // every start tried
        const QStringList none, about = {"/opt/bin/about --system"};
        QTest::newRow("nothing installed") << none << true << none;
        QTest::newRow("first installed") << QStringList{"about", "probe"} << true << about;
        QTest::newRow("only the last")
            << QStringList{"probe"} << true << QStringList{"/opt/bin/probe"};
        QTest::newRow("will not start") << QStringList{"about"} << false << about;
        QTest::newRow("a failed start tries no other")
            << QStringList{"about", "probe"} << false << about;
    }

    void systemInfoButton() {
        QFETCH(QStringList, installed);
        QFETCH(bool, startWorks);
        QFETCH(QStringList, started);
        launcher.installed = installed;
        launcher.startWorks = startWorks;
        const bool unavailable = started.isEmpty() || !startWorks;
        prompts.expectTells(unavailable ? 1 : 0);
        QTest::mouseClick(about->findChild<QPushButton*>("buttonSysInfo"), Qt::LeftButton);
        QCOMPARE(launcher.started, started);
        QCOMPARE(prompts.messages(), unavailable
                                         ? QStringList{"Marl - Marlstone: System Information Is "
                                                       "Unavailable At This Time"}
                                         : QStringList{});
        QVERIFY(about->isVisible());
    }

    void runningDesktopComesFirst() {
        // XDG_CURRENT_DESKTOP and the tool tried first; the others stay
        // candidates, each program once.
        const std::pair<const char*, const char*> rows[] = {
            {"ubuntu:GNOME", "gnome-control-center"},
            {"xfce", "xfce4-about"},
            {"LXQt", "hardinfo2"}};
        for (const auto& [desktops, first] : rows) {
            QStringList programs;
            for (const SysInfoTool& tool : freeDesktopSysInfoTools(desktops))
                programs << tool.program;
            QCOMPARE(programs.first(), first);
            QCOMPARE(programs.size(), 6);
            QCOMPARE(QSet<QString>(programs.begin(), programs.end()).size(), 6);
        }
    }
};

MARL_TEST_MAIN(FormAboutTest)
#include "form_about_test.moc"
