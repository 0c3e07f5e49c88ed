// Writes the program's picture as the PNG icons a Linux desktop looks for:
//   marl-icons OUTDIR NAME SIZE...   ->   OUTDIR/SIZE/NAME.png
// Run by the build, so the installed icons always match the window icon.
#include <QDir>
#include <QGuiApplication>
#include <QPixmap>
#include <cstdio>

#include "about/app_icon.h"

int main(int argc, char* argv[]) {
    QGuiApplication app(argc, argv);
    const QStringList args = QGuiApplication::arguments();
    if (args.size() < 4) {
        std::fputs("Usage: marl-icons OUTDIR NAME SIZE...\n", stderr);
        return 2;
    }
    for (const QString& size : args.mid(3)) {
        const int side = size.toInt();
        const QString dir = QDir(args[1]).filePath(size);
        if (side <= 0 || !QDir().mkpath(dir) ||
            !marl::appPicture(side, 1.0).save(QDir(dir).filePath(args[2] + ".png"), "PNG")) {
            std::fprintf(stderr, "marl-icons: cannot write the %s icon\n", qPrintable(size));
            return 1;
        }
    }
    return 0;
}
