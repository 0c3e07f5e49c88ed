#pragma once
// The platform's file dialog, behind an interface tests can script.

#include <QString>

namespace marl {

struct FileRequest {
    bool save = false;     // the save-as form (New) or the open form (Open)
    QString title;         // "Open World File"
    QString filter;        // "World files (*.wld)"
    QString defaultSuffix; // "wld"
    QString directory;     // where the dialog starts
};

class FileChooser {
public:
    virtual ~FileChooser() = default;
    // The full path chosen, or an empty string when the builder cancelled.
    virtual QString choose(const FileRequest& request) = 0;
};

class DialogFileChooser : public FileChooser {
public:
    QString choose(const FileRequest& request) override;
};

} // namespace marl
