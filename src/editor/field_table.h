#pragma once
// Entry fields built from a field table (FieldDef rows: frame, caption,
// control, kind, rule), and what Save asks of them.

#include <QString>
#include <functional>
#include <span>
#include <vector>

#include "editor/form_text.h"

class QGroupBox;
class QLineEdit;
class QWidget;

namespace marl {

class Prompts;

// The entry fields of a field table on `parent`, into `edits` in the
// table's order (its first row's field is `first` when given, made by the
// caller), each in a frame of its own captioned from the table unless
// `unframed` says otherwise; returns the frames by row, null for a field
// left unframed.
std::vector<QGroupBox*> makeFields(QWidget* parent, std::span<const FieldDef> defs,
                                   std::span<QLineEdit*> edits, QLineEdit* first = nullptr,
                                   const std::function<bool(const FieldDef&)>& unframed = {});

// Whether every field that must hold text does.
bool fieldsFilled(std::span<const FieldDef> defs, std::span<QLineEdit* const> edits);

// Save can be enabled by an option, a flag or a dialog after Clear All:
// the first field that is empty without leave or holds a number that does
// not read as one is told to the builder by its caption, titled `title`,
// and gets the focus; false then.
bool checkFieldTable(std::span<const FieldDef> defs, std::span<QLineEdit* const> edits,
                     Prompts& prompts, const QString& title);

} // namespace marl
