#pragma once
// formMain: the first and last window.  Its menus start an editor on a new
// file, on a file chosen in the file dialog or on a recently used file; it
// stays disabled while the editor (or the About box) is open.

#include <QMainWindow>
#include <QPointer>
#include <array>
#include <cstdint>
#include <functional>

#include "shell/editor_host.h"
#include "shell/recent_files.h"

class QAction;

namespace marl {

class FileChooser;
class Prompts;

// Kind numbers shared by the menus, LoadEditor and recent.dat.
enum FileKind : int { KindMobile = 0, KindRoom = 1, KindObject = 2, KindShop = 3, KindZone = 4 };

class FormMain : public QMainWindow, public EditorHost {
    Q_OBJECT
public:
    FormMain(const QString& progDir, Prompts& prompts, FileChooser& chooser,
             QWidget* parent = nullptr);
    ~FormMain() override;

    using EditorFactory = std::function<ZoneEditor*(EditorHost&)>;
    // The editor window of a kind; kinds without one say so when opened.
    void setEditorFactory(int kind, EditorFactory factory);
    // The About box: a top-level window deleted on close.
    void setAboutFactory(std::function<QWidget*()> factory);

    void LoadEditor(int kind, bool isNew, bool useDialog, int recentIndex);
    void ChProgDir();

    QString progDir() const { return progDir_; }
    QString fileDir() const override { return fileDir_; }
    Prompts& prompts() override { return prompts_; }
    void editorClosed() override;

    std::int32_t zoneNumber() const { return zoneNumber_; }
    QWidget* openEditor() const { return editorWindow_; }
    RecentFiles& recent() { return recent_; }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void buildMenus();
    void addFileMenu(int kind);
    void showRecent();
    void showAbout();

    QString progDir_;
    QString fileDir_;
    std::int32_t zoneNumber_ = 0;
    Prompts& prompts_;
    FileChooser& chooser_;
    RecentFiles recent_;
    std::array<EditorFactory, 3> factories_;
    std::function<QWidget*()> aboutFactory_;
    std::array<std::array<QAction*, kRecentPerKind>, kFileKinds> recentActions_{};
    QPointer<QWidget> editorWindow_;
    QPointer<QWidget> aboutWindow_;
};

} // namespace marl
