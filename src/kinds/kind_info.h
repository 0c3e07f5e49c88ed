#pragma once
// What a kind of zone file is called and how the program offers it, as
// plain data: its number (the menus' order and recent.dat), its name, its
// extension, the file dialog's filter and titles, the words of its counts
// and its editor's messages.  Each kind's entry (room_kind.h and its kin)
// holds one of these beside its record and file types.

#include <string_view>

namespace marl {

// The messages of an editor window that name the kind it edits.
struct EditorText {
    const char* form = nullptr;            // the window's objectName
    const char* title = nullptr;           // its title before a record is shown
    const char* notSavedLine = nullptr;    // first line of the New, Done and Cancel guards
    const char* notSavedTitle = nullptr;   // their title, and that of a refused or failed save
    const char* notDeletedTitle = nullptr; // title of a failed delete
    const char* overwriteLine = nullptr;   // asked when the VNum saved is taken
    const char* overwriteTitle = nullptr;
    const char* deleteLine = nullptr; // asked before a delete, titled "Confirm Delete"
    const char* zoneFull = nullptr;   // New with 100 records
};

// Each kind keeps four recent files, slots 4 x number to 4 x number + 3 of
// recent.dat's list.
inline constexpr int kRecentPerKind = 4;

struct KindInfo {
    int number;                 // 0 Mobile, 1 Room, 2 Object, 3 Shop, 4 Zone
    std::string_view name;      // "Room": the menu, and the editor's names ("formRoom")
    std::string_view extension; // ".wld"
    std::string_view filter;    // the file dialog's: "World files (*.wld)|*.wld"
    std::string_view newTitle;  // "New World File"
    std::string_view openTitle; // "Open World File"
    std::string_view one;       // in counts: "1 room"
    std::string_view many;      // "2 rooms"
    EditorText editor;          // empty for a kind without an editor
};

} // namespace marl
