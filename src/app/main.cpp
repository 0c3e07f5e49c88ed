#include <QApplication>

#include "about/app_icon.h"
#include "about/form_about.h"
#include "mobiles/form_mobile.h"
#include "rooms/form_room.h"
#include "shell/file_chooser.h"
#include "shell/form_main.h"
#include "shell/prompts.h"

int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Marl"));
    QApplication::setOrganizationName(QStringLiteral("Marl"));
    QApplication::setWindowIcon(marl::appIcon());
    marl::MessageBoxPrompts prompts;
    marl::DialogFileChooser chooser;
    marl::FormMain window(QApplication::applicationDirPath(), prompts, chooser);
    window.setEditorFactory(marl::KindMobile,
                            [](marl::EditorHost& host) { return new marl::FormMobile(host); });
    window.setEditorFactory(marl::KindRoom,
                            [](marl::EditorHost& host) { return new marl::FormRoom(host); });
    window.setAboutFactory([&prompts] { return new marl::FormAbout(prompts); });
    window.show();
    return QApplication::exec();
}
