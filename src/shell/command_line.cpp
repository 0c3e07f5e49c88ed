#include "shell/command_line.h"

#include <QDir>
#include <QFileInfo>

#include "widgets/prompts.h"

namespace marl {

namespace {

QString helpText() {
    return QStringLiteral(
        "Usage: marl [FILE...]\n"
        "Edit the rooms, mobiles and objects of a CircleMUD zone.\n"
        "\n"
        "Each FILE opens in the editor of its kind, as Open would: a world file\n"
        "(30.wld), a mobile file (30.mob) or an object file (30.obj), one of each\n"
        "kind.  A zone file is named by its zone number.\n"
        "\n"
        "  -h, --help     show this help and exit\n"
        "  -v, --version  show the version and exit\n");
}

} // namespace

CommandLine parseCommandLine(const QStringList& arguments) {
    CommandLine line;
    QString wrong;
    bool options = true;
    for (const QString& argument : arguments) {
        if (options && argument == QLatin1String("--")) {
            options = false;
        } else if (options &&
                   (argument == QLatin1String("-h") || argument == QLatin1String("--help"))) {
            line.action = CommandLine::Action::Help;
            line.text = helpText();
            return line;
        } else if (options &&
                   (argument == QLatin1String("-v") || argument == QLatin1String("--version"))) {
            line.action = CommandLine::Action::Version;
        } else if (options && argument.startsWith(QLatin1Char('-')) && argument.size() > 1) {
            if (wrong.isEmpty())
                wrong = argument;
        } else if (!argument.isEmpty()) {
            line.files << QDir::cleanPath(QFileInfo(argument).absoluteFilePath());
        }
    }
    if (line.action == CommandLine::Action::Version) {
        line.text = QStringLiteral("marl %1\n").arg(appVersion());
        line.files.clear();
    } else if (!wrong.isEmpty()) {
        line.action = CommandLine::Action::Wrong;
        line.text = QStringLiteral("marl: unknown option %1\nTry 'marl --help'.\n").arg(wrong);
        line.files.clear();
    }
    return line;
}

} // namespace marl
