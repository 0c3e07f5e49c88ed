// The About box: how it gives the main window back, and finding and starting
// the system-information tool.
#include "test_main.h"

#include <QtTest>

#include <QAction>
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
    QList<SysInfoTool> candidates() const override { return {{"about", {"--system"}}, {"overview", {}}, {"probe", {}}}; }
    QString findProgram(const QString& program) const override {
        return installed.contains(program) ? "/opt/bin/" + program : QString();
    }
    bool startProgram(const QString& path, const QStringList& arguments) override {
        started << (path + ' ' + arguments.join(' ')).trimmed();
        return startWorks;
    }
    QStringList installed, started;
    bool startWorks = true;
};

} // namespace

class FormAboutTest : public QObject {
    Q_OBJECT
    ScriptedPrompts prompts;
    FakeLauncher launcher;

private slots:
    void init() { prompts.reset(); }
    void cleanup() { MARL_VERIFY_PROMPTS(prompts); }

    // However the box closes (key 0: the frame's close button), it is
    // destroyed and the main window, disabled meanwhile, comes back.
    void mainWindowComesBack() {
        for (const auto& [key, modifiers] : {std::pair{Qt::Key_O, Qt::AltModifier}, {Qt::Key_Return, Qt::NoModifier},
                                             {Qt::Key_Escape, Qt::NoModifier}, {Qt::Key(0), Qt::NoModifier}}) {
            QTemporaryDir progDir;
            ScriptedChooser chooser;
            FormMain main(progDir.path(), prompts, chooser);
            QPointer<FormAbout> box;
            main.setAboutFactory([&] { return box = new FormAbout(prompts, launcher); });
            main.show();
            main.findChild<QAction*>("menuHelpAbout")->trigger();
            QVERIFY(box && box->isVisible() && !main.isEnabled() && box->isEnabled());
            box->activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(box));
            key ? QTest::keyClick(box, key, modifiers) : void(box->close());
            QTRY_VERIFY2(box.isNull(), qPrintable(QString::number(key))); // a key presses its button a moment later
            QVERIFY(main.isEnabled());
        }
    }

    // The first candidate installed is started; none, or one that will not
    // start, is told, and no other is tried.
    void systemInfoButton() {
        const QStringList about = {"/opt/bin/about --system"};
        const QStringList none, both = {"about", "probe"};
        const std::tuple<QStringList, bool, QStringList> rows[] = {
            {none, true, none}, {both, true, about}, {QStringList{"probe"}, true, QStringList{"/opt/bin/probe"}},
            {both, false, about}};
        for (const auto& [installed, startWorks, started] : rows) {
            launcher = {};
            launcher.installed = installed;
            launcher.startWorks = startWorks;
            FormAbout box(prompts, launcher);
            const bool told = started.isEmpty() || !startWorks;
            prompts.expectTells(told);
            QTest::mouseClick(box.findChild<QPushButton*>("buttonSysInfo"), Qt::LeftButton);
            QCOMPARE(launcher.started, started);
            QCOMPARE(prompts.records.size(), qsizetype(told));
            if (told)
                QCOMPARE(prompts.messages().takeFirst(), "Marl - Marlstone: System Information Is Unavailable At This Time");
            prompts.reset();
        }
    }
};

MARL_TEST_MAIN(FormAboutTest)
#include "form_about_test.moc"
