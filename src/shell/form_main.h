#pragma once
// formMain: the first and last window.  Its menus start an editor on a new
// file, on a file chosen in the file dialog or on a recently used file; files
// given on the command line or dropped on it open the same way.  It stays
// disabled while an editor (or the About box) is open.

#include <QMainWindow>
#include <QPointer>
#include <array>
#include <cstdint>
#include <functional>
#include <memory>

#include "editor/editor_host.h"
#include "kinds/zone_kinds.h"
#include "shell/recent_files.h"

class QAction;
class QDragEnterEvent;
class QDropEvent;

namespace marl {

class FileChooser;
class Prompts;

class FormMain : public QMainWindow {
    Q_OBJECT
public:
    // recent.dat is kept in `recentDir` (see recentFolder()).
    FormMain(const QString& progDir, const QString& recentDir, Prompts& prompts,
             FileChooser& chooser, QWidget* parent = nullptr);
    // recent.dat beside the program, as in its build folder.
    FormMain(const QString& progDir, Prompts& prompts, FileChooser& chooser,
             QWidget* parent = nullptr)
        : FormMain(progDir, progDir, prompts, chooser, parent) {}
    ~FormMain() override;

    using EditorFactory = std::function<ZoneEditor*(EditorHost&)>;
    // The editor window of a kind (by its number, as KindInfo::number); a
    // kind whose entry names a window but has no factory says so when
    // opened.  useKindWindows (kind_windows.h) sets every kind's own.
    void setEditorFactory(int kind, EditorFactory factory);
    // The About box: a top-level window deleted on close.
    void setAboutFactory(std::function<QWidget*()> factory);

    void LoadEditor(int kind, bool isNew, bool useDialog, int recentIndex);
    void ChProgDir();
    // Files given on the command line or dropped: each opens in its kind's
    // editor as Open would, one file of each kind; anything else is refused
    // with a message that names it.
    void openFiles(const QStringList& paths);

    QString progDir() const { return progDir_; }
    // The folder of the file chosen last, ending with `/`.
    QString fileDir() const { return fileDir_; }

    std::int32_t zoneNumber() const { return zoneNumber_; }
    // The editor window open for a kind, or with no kind the first one open.
    QWidget* openEditor(int kind = -1) const;
    RecentFiles& recent() { return recent_; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    class KindHost;

    void buildMenus();
    void addFileMenu(int kind);
    void showRecent();
    void showAbout();
    static bool hasEditor(int kind);
    bool editorAvailable(int kind);
    QString dialogFolder(int kind) const;
    void openFile(int kind, bool isNew, const QString& directory, const QString& fileTitle,
                  bool listIt);
    void editorClosed(int kind);

    QString progDir_;
    QString fileDir_;
    std::int32_t zoneNumber_ = 0;
    Prompts& prompts_;
    FileChooser& chooser_;
    RecentFiles recent_;
    std::array<EditorFactory, kKindCount> factories_;
    // One host per editor kind: the folder of that editor's file, and a way
    // back when it closes.
    std::array<std::unique_ptr<KindHost>, kKindCount> hosts_;
    std::function<QWidget*()> aboutFactory_;
    std::array<std::array<QAction*, kRecentPerKind>, kKindCount> recentActions_{};
    QPointer<QWidget> aboutWindow_;
};

} // namespace marl
