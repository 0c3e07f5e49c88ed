#pragma once
// formAbout: the program's title, version and description, who makes it and
// how to reach them, and a button that starts the system-information tool.
// A window of its own (no Qt parent) that deletes itself on close, so the
// main window, disabled meanwhile, comes back however the box is closed.

#include <QDialog>

#include "about/sys_info.h"

namespace marl {

class Prompts;

class FormAbout : public QDialog {
    Q_OBJECT
public:
    explicit FormAbout(Prompts& prompts, ProgramLauncher& launcher = systemLauncher());

private:
    void StartSysInfo();

    Prompts& prompts_;
    ProgramLauncher& launcher_;
};

// "Version 0.3.1": the program's own version numbers.
QString versionText();

} // namespace marl
