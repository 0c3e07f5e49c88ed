#include <QApplication>
#include <cstdio>

#include "about/app_icon.h"
#include "about/form_about.h"
#include "shell/command_line.h"
#include "shell/desktop_paths.h"
#include "shell/file_chooser.h"
#include "shell/form_main.h"
#include "shell/kind_windows.h"
#include "widgets/prompts.h"

namespace {

QStringList argumentsOf(int argc, char* argv[]) {
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    return arguments;
}

int answerInTerminal(const marl::CommandLine& line) {
    std::fputs(line.text.toLocal8Bit().constData(), line.exitCode() ? stderr : stdout);
    return line.exitCode();
}

} // namespace

int main(int argc, char* argv[]) {
    // --help and --version are answered before the windowing system is
    // asked for anything, so that they work without a display.
    const marl::CommandLine early = marl::parseCommandLine(argumentsOf(argc, argv));
    if (early.action == marl::CommandLine::Action::Help ||
        early.action == marl::CommandLine::Action::Version)
        return answerInTerminal(early);

    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Marl"));
    QApplication::setOrganizationName(QStringLiteral("Marl"));
    QApplication::setDesktopFileName(QStringLiteral("org.marl_editor.Marl"));
    QApplication::setWindowIcon(marl::appIcon());
    // What is left once Qt has taken its own options (-platform, -style).
    const marl::CommandLine line = marl::parseCommandLine(QApplication::arguments().mid(1));
    if (line.action != marl::CommandLine::Action::Run)
        return answerInTerminal(line);

    marl::MessageBoxPrompts prompts;
    marl::DialogFileChooser chooser;
    const QString progDir = QApplication::applicationDirPath();
    marl::FormMain window(progDir, marl::recentFolder(progDir, QStringLiteral(MARL_BUILD_DIR)),
                          prompts, chooser);
    marl::useKindWindows(window);
    window.setAboutFactory([&prompts] { return new marl::FormAbout(prompts); });
    window.show();
    window.openFiles(line.files);
    return QApplication::exec();
}
