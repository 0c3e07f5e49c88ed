// The About box gives the main window back however it closes.
#include "test_main.h"

#include <QtTest>

#include <QAction>
#include <QPointer>
#include <QTemporaryDir>

#include "about/form_about.h"
#include "shell/form_main.h"
#include "test_support.h"

using namespace marl;
using namespace marl::test;

namespace {

// A machine without system-information tools.
class FakeLauncher : public ProgramLauncher {
public:
    QList<SysInfoTool> candidates() const override { return {}; }
    QString findProgram(const QString&) const override { return {}; }
    bool startProgram(const QString&, const QStringList&) override { return false; }
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
};

MARL_TEST_MAIN(FormAboutTest)
#include "form_about_test.moc"
