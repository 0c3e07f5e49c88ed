#pragma once
// The About box's System Info button: find the platform's own
// system-information program and start it without waiting for it.  On
// Windows the registry names msinfo32; elsewhere we look for the desktop's
// "About this system" tool.  Which programs to look for, which of them are
// installed, and starting them go through ProgramLauncher, so that tests
// decide what the machine has.

#include <QList>
#include <QString>
#include <QStringList>

namespace marl {

class Prompts;

// "System Information Is Unavailable At This Time"
QString sysInfoUnavailable();

// Reads one registry value under `rootKey` ("HKEY_LOCAL_MACHINE"): a string
// as it stands, a 32-bit number in decimal, any other type as an empty text.
// False, with `value` empty, when the key or the value is not there, and
// always false where there is no registry.
bool GetKeyValue(const QString& rootKey, const QString& keyPath, const QString& valueName,
                 QString& value);

struct SysInfoTool {
    QString program;
    QStringList arguments;
};

class ProgramLauncher {
public:
    virtual ~ProgramLauncher() = default;
    // The system-information tools to look for, best first.
    virtual QList<SysInfoTool> candidates() const = 0;
    // The full path of an installed program: a bare name is looked up on the
    // PATH, a full path must exist.  Empty when it is not installed.
    virtual QString findProgram(const QString& program) const = 0;
    // Starts the program on its own; it outlives the editor and is never
    // waited for.  False when it could not be started.
    virtual bool startProgram(const QString& path, const QStringList& arguments) = 0;
};

// The machine itself.
class SystemLauncher : public ProgramLauncher {
public:
    QList<SysInfoTool> candidates() const override;
    QString findProgram(const QString& program) const override;
    bool startProgram(const QString& path, const QStringList& arguments) override;
};

// The one SystemLauncher of the program.
ProgramLauncher& systemLauncher();

// The system-information tools of X11 and Wayland desktops, best first:
// those of the running desktop (`desktops` as in XDG_CURRENT_DESKTOP, a
// colon-separated list such as "ubuntu:GNOME"), then those of no desktop in
// particular, then the other desktops' own.
QList<SysInfoTool> freeDesktopSysInfoTools(const QString& desktops);

// This platform's candidates, best first.  On Windows: the program the
// registry names under Shared Tools\MSINFO, else MSINFO32.EXE in the
// Shared Tools Location when that file exists.
QList<SysInfoTool> sysInfoTools();

// Starts the first of the launcher's candidates that is installed.  When
// none is, or starting it fails, tells the builder that system information
// is unavailable.  True when a tool was started.
bool StartSysInfo(ProgramLauncher& launcher, Prompts& prompts);

} // namespace marl
