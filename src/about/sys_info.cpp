#include "about/sys_info.h"

#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QtGlobal>
#include <algorithm>

#ifdef Q_OS_WIN
#include <QSettings>
#include <QVariant>
#endif

#include "widgets/prompts.h"

namespace marl {

QString sysInfoUnavailable() {
    return QStringLiteral("System Information Is Unavailable At This Time");
}

bool GetKeyValue(const QString& rootKey, const QString& keyPath, const QString& valueName,
                 QString& value) {
    value.clear();
#ifdef Q_OS_WIN
    const QSettings key(rootKey + QLatin1Char('\\') + keyPath, QSettings::NativeFormat);
    if (key.status() != QSettings::NoError || !key.contains(valueName))
        return false;
    // The registry hands strings over as QString and DWORDs as numbers;
    // binary and multi-string values are of no use here.
    const QVariant read = key.value(valueName);
    switch (read.typeId()) {
    case QMetaType::QString:
    case QMetaType::Int:
    case QMetaType::UInt:
        value = read.toString();
        break;
    default:
        break;
    }
    return true;
#else
    Q_UNUSED(rootKey)
    Q_UNUSED(keyPath)
    Q_UNUSED(valueName)
    return false;
#endif
}

QList<SysInfoTool> SystemLauncher::candidates() const {
    return sysInfoTools();
}

QString SystemLauncher::findProgram(const QString& program) const {
    if (program.isEmpty())
        return {};
    const QFileInfo info(program);
    if (info.isAbsolute())
        return info.isFile() ? program : QString();
    return QStandardPaths::findExecutable(program);
}

bool SystemLauncher::startProgram(const QString& path, const QStringList& arguments) {
    return QProcess::startDetached(path, arguments);
}

ProgramLauncher& systemLauncher() {
    static SystemLauncher launcher;
    return launcher;
}

namespace {

struct DesktopTool {
    const char* desktop; // as named in XDG_CURRENT_DESKTOP; empty: any desktop
    const char* program;
    QStringList arguments;
};

const QList<DesktopTool>& desktopTools() {
    static const QList<DesktopTool> tools = {
        {"GNOME", "gnome-control-center", {QStringLiteral("info-overview")}},
        {"Unity", "gnome-control-center", {QStringLiteral("info-overview")}},
        {"KDE", "kinfocenter", {}},
        {"XFCE", "xfce4-about", {}},
        {"X-Cinnamon", "cinnamon-settings", {QStringLiteral("info")}},
        {"", "hardinfo2", {}},
        {"", "hardinfo", {}},
    };
    return tools;
}

} // namespace

QList<SysInfoTool> freeDesktopSysInfoTools(const QString& desktops) {
    const QStringList running = desktops.split(QLatin1Char(':'), Qt::SkipEmptyParts);
    const auto rank = [&running](const DesktopTool& tool) {
        const QString desktop = QString::fromLatin1(tool.desktop);
        if (desktop.isEmpty())
            return 1;
        return running.contains(desktop, Qt::CaseInsensitive) ? 0 : 2;
    };
    QList<SysInfoTool> result;
    for (int wanted = 0; wanted <= 2; ++wanted) {
        for (const DesktopTool& tool : desktopTools()) {
            const QString program = QString::fromLatin1(tool.program);
            const bool listed =
                std::any_of(result.cbegin(), result.cend(),
                            [&](const SysInfoTool& t) { return t.program == program; });
            if (rank(tool) == wanted && !listed)
                result.append({program, tool.arguments});
        }
    }
    return result;
}

QList<SysInfoTool> sysInfoTools() {
#if defined(Q_OS_WIN)
    const QString machine = QStringLiteral("HKEY_LOCAL_MACHINE");
    QString path;
    if (GetKeyValue(machine, QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools\\MSINFO"),
                    QStringLiteral("PATH"), path))
        return {SysInfoTool{path, {}}};
    if (GetKeyValue(machine, QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools Location"),
                    QStringLiteral("MSINFO"), path)) {
        path += QStringLiteral("\\MSINFO32.EXE");
        if (QFileInfo::exists(path))
            return {SysInfoTool{path, {}}};
    }
    return {};
#elif defined(Q_OS_MACOS)
    return {SysInfoTool{QStringLiteral("open"),
                        {QStringLiteral("-a"), QStringLiteral("System Information")}}};
#else
    return freeDesktopSysInfoTools(qEnvironmentVariable("XDG_CURRENT_DESKTOP"));
#endif
}

bool StartSysInfo(ProgramLauncher& launcher, Prompts& prompts) {
    for (const SysInfoTool& tool : launcher.candidates()) {
        const QString path = launcher.findProgram(tool.program);
        if (path.isEmpty())
            continue;
        // The first installed tool is the one; if it will not start, the
        // machine is in no state to show the others either.
        if (launcher.startProgram(path, tool.arguments))
            return true;
        break;
    }
    prompts.tell(sysInfoUnavailable());
    return false;
}

} // namespace marl
