#include "shell/file_chooser.h"

#include <QApplication>
#include <QFileDialog>

namespace marl {

QString DialogFileChooser::choose(const FileRequest& request) {
    QFileDialog dialog(QApplication::activeWindow(), request.title, request.directory,
                       request.filter + QStringLiteral(";;All files (*)"));
    dialog.setAcceptMode(request.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setDefaultSuffix(request.defaultSuffix);
    // Neither form asks whether the file exists: New on an existing file
    // opens an empty editor that replaces the file on its first save, and a
    // name typed into Open that is not there is refused by the editor with a
    // message that names it.
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, true);
    dialog.setOption(QFileDialog::ReadOnly, false);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    return dialog.selectedFiles().constFirst();
}

} // namespace marl
