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
using marl::test::ScriptedChooser;
using marl::test::ScriptedPrompts;

namespace {

// A machine with every program, or with none.
class FakeLauncher : public ProgramLauncher {
public:
    QString findProgram(const QString& program) const override {
        return everything && !program.isEmpty() ? program : QString();
    }
    bool startProgram(const QString& path, const QStringList&) override {
        started.append(path);
        return true;
    }
    bool everything = false;
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

enum class CloseBy { OkClick, OkKey, EnterKey, EscapeKey, FrameClose };

// The About box the main window opened (not `other`, the fixture's own).
FormAbout* openAbout(const QWidget* other) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window != other && window->objectName() == QLatin1String("formAbout") &&
            window->isVisible())
            return qobject_cast<FormAbout*>(window);
    }
    return nullptr;
}

} // namespace

Q_DECLARE_METATYPE(CloseBy)

class FormAboutTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void titleAndVersion();
    void addressesOpenOnTheDesktop_data();
    void addressesOpenOnTheDesktop();
    void mainWindowComesBack_data();
    void mainWindowComesBack();
    void systemInfoButton_data();
    void systemInfoButton();

private:
    UrlRecorder urls;
    ScriptedPrompts prompts;
    FakeLauncher launcher;
    FormAbout* about = nullptr;
};

void FormAboutTest::initTestCase() {
    QStandardPaths::setTestModeEnabled(true);
    for (const char* scheme : {"mailto", "https"})
        QDesktopServices::setUrlHandler(QString::fromLatin1(scheme), &urls, "open");
}

void FormAboutTest::cleanupTestCase() {
    for (const char* scheme : {"mailto", "https"})
        QDesktopServices::unsetUrlHandler(QString::fromLatin1(scheme));
}

void FormAboutTest::init() {
    prompts.reset();
    launcher.everything = false;
    launcher.started.clear();
    urls.opened.clear();
    about = new FormAbout(prompts, launcher);
    about->show();
}

void FormAboutTest::cleanup() {
    MARL_VERIFY_PROMPTS(prompts);
    delete about;
}

void FormAboutTest::titleAndVersion() {
    QCOMPARE(about->windowTitle(), QStringLiteral("About Marl - Marlstone"));
    QCOMPARE(about->findChild<QLabel*>(QStringLiteral("labelAppName"))->text(),
             QStringLiteral("Marl - Marlstone"));
    QCOMPARE(about->findChild<QLabel*>(QStringLiteral("labelAppVersion"))->text(),
             QStringLiteral("Version 0.3.1"));
}

void FormAboutTest::addressesOpenOnTheDesktop_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("scheme");
    QTest::addColumn<bool>("byKey");
    const char* rows[][2] = {
        {"labelEMail", "mailto"},
        {"labelCompanyEMail", "mailto"},
        {"labelWebSite", "https"},
        {"labelCompanyWebSite", "https"},
    };
    for (const auto& row : rows) {
        const QString name = QString::fromLatin1(row[0]);
        QTest::addRow("%s clicked", row[0]) << name << QString::fromLatin1(row[1]) << false;
        QTest::addRow("%s by Space", row[0]) << name << QString::fromLatin1(row[1]) << true;
    }
}

void FormAboutTest::addressesOpenOnTheDesktop() {
    QFETCH(QString, name);
    QFETCH(QString, scheme);
    QFETCH(bool, byKey);
    auto* label = about->findChild<QLabel*>(name);
    QVERIFY(label);
    QCOMPARE(label->cursor().shape(), Qt::PointingHandCursor);
    if (byKey) {
        label->setFocus();
        QTest::keyClick(label, Qt::Key_Space);
    } else {
        QTest::mouseClick(label, Qt::LeftButton);
    }
    QCOMPARE(urls.opened.size(), 1);
    const QUrl url = urls.opened.first();
    QCOMPARE(url.scheme(), scheme);
    // A mail address opens as "mailto:" and the address; a web address as it reads.
    const QString expected =
        scheme == QLatin1String("mailto") ? QStringLiteral("mailto:") + label->text() : label->text();
    QCOMPARE(url.toString(), expected);
}

void FormAboutTest::mainWindowComesBack_data() {
    QTest::addColumn<CloseBy>("by");
    QTest::newRow("Ok clicked") << CloseBy::OkClick;
    QTest::newRow("Alt+O") << CloseBy::OkKey;
    QTest::newRow("Enter") << CloseBy::EnterKey;
    QTest::newRow("Escape") << CloseBy::EscapeKey;
    QTest::newRow("frame's close button") << CloseBy::FrameClose;
}

void FormAboutTest::mainWindowComesBack() {
    QFETCH(CloseBy, by);
    QTemporaryDir progDir;
    ScriptedChooser chooser;
    FormMain main(progDir.path(), prompts, chooser);
    main.setAboutFactory([this] { return new FormAbout(prompts, launcher); });
    main.show();

    main.findChild<QAction*>(QStringLiteral("menuHelpAbout"))->trigger();
    QPointer<FormAbout> box = openAbout(about);
    QVERIFY(box);
    QVERIFY(!main.isEnabled());
    QVERIFY2(box->isEnabled(), "the About box must not be disabled with the main window");

    // Access keys and Enter reach the window the builder is in.
    box->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(box));
    switch (by) {
    case CloseBy::OkClick:
        QTest::mouseClick(box->findChild<QPushButton*>(QStringLiteral("buttonOk")), Qt::LeftButton);
        break;
    case CloseBy::OkKey:
        QTest::keyClick(box, Qt::Key_O, Qt::AltModifier);
        break;
    case CloseBy::EnterKey:
        QTest::keyClick(box, Qt::Key_Return);
        break;
    case CloseBy::EscapeKey:
        QTest::keyClick(box, Qt::Key_Escape);
        break;
    case CloseBy::FrameClose:
        box->close();
        break;
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    // An access key presses its button a moment later, as a click would look.
    QTRY_VERIFY2(box.isNull(), "the About box is destroyed when it closes");
    QVERIFY(main.isEnabled());
}

void FormAboutTest::systemInfoButton_data() {
    QTest::addColumn<bool>("installed");
    QTest::newRow("no system-information program") << false;
    QTest::newRow("one installed") << true;
}

void FormAboutTest::systemInfoButton() {
    QFETCH(bool, installed);
    if (installed && sysInfoTools().isEmpty())
        QSKIP("this machine names no system-information program");
    launcher.everything = installed;
    prompts.expectTells(installed ? 0 : 1);

    QTest::mouseClick(about->findChild<QPushButton*>(QStringLiteral("buttonSysInfo")),
                      Qt::LeftButton);

    QCOMPARE(launcher.started.size(), installed ? 1 : 0);
    QCOMPARE(prompts.records.size(), installed ? 0 : 1);
    if (!installed) {
        QCOMPARE(prompts.records[0].text,
                 QStringLiteral("System Information Is Unavailable At This Time"));
        QCOMPARE(prompts.records[0].title, appTitle());
    }
    QVERIFY(about->isVisible());
}

QTEST_MAIN(FormAboutTest)
#include "form_about_test.moc"
