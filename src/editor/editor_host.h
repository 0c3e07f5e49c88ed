#pragma once
// How the main window and the zone editors meet.  The main window creates an
// editor for a chosen file and disables itself; the editor calls back through
// EditorHost when it closes.

#include <QString>
#include <cstdint>

class QWidget;

namespace marl {

class Prompts;

class EditorHost {
public:
    virtual ~EditorHost() = default;
    // The directory of the file being edited, ending with `/`.
    virtual QString fileDir() const = 0;
    // The name of the file the builder chose (`030.wld`); empty for the
    // zone's own name.  The editor reads and writes that file.
    virtual QString fileTitle() const { return {}; }
    virtual Prompts& prompts() = 0;
    // The editor has closed (Cancel, Done or its frame): return to the
    // program's directory and enable the main window.
    virtual void editorClosed() = 0;
};

class ZoneEditor {
public:
    virtual ~ZoneEditor() = default;
    // The editor's top-level window (created without a parent, deleted on close).
    virtual QWidget* window() = 0;
    // Prepares an empty file of the zone (NewRoom and its kin).
    virtual void newZone(std::int32_t zone) = 0;
    // Reads the zone's file and shows its first record (LoadRooms, then
    // LoadRoom(0)).  On failure nothing is shown and `error` says why:
    // "30.wld, line 412: expected ...".
    virtual bool openZone(std::int32_t zone, QString& error) = 0;
};

} // namespace marl
