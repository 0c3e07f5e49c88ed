#pragma once
// What the windows say about themselves, as data: a dialog's names, title and
// the question its Cancel asks while it holds changes, and an entry field's
// frame, caption and key rule.  The windows build themselves from these.

#include <cstdint>
#include <limits>
#include <span>
#include <string_view>

#include "world/numeric_rule.h"

namespace marl {

// The second line of every Cancel question, below the dialog's own line.
inline constexpr const char* kCancelAnyway = "Cancel Anyway?";

struct DialogText {
    const char* form;         // the window's objectName
    const char* title;        // the window's title
    const char* frame;        // objectName of the frame around its controls, or null
    const char* frameCaption; // that frame's caption, or null
    const char* changedLine;  // first line of the Cancel question
    const char* changedTitle; // title of the Cancel question
};

// The one edit field of the description text dialogs, in the frame
// `frameDesc`.
inline constexpr const char* kDescTextControl = "textDesc";

enum class FieldKind {
    Text,   // any character a single-byte file holds, but `~`
    Number, // the keys and range of its rule
};

struct FieldDef {
    const char* frame;   // objectName of the frame the field stands in
    const char* caption; // the frame's caption; names the field in messages
    const char* control; // the field's objectName
    FieldKind kind;
    NumericRule rule;        // typing limit, `-`, range; the limit holds for text too
    bool mayBeEmpty = false; // Save takes the record with this field empty
};

// The field of this control name in a table, or null.
inline const FieldDef* findField(std::span<const FieldDef> fields, std::string_view control) {
    for (const FieldDef& field : fields)
        if (control == field.control)
            return &field;
    return nullptr;
}

// Rules of the field tables: digits only, up to `length` characters (0: no
// limit), with or without a range and `-`.
inline constexpr std::int64_t kInt32Min = std::numeric_limits<std::int32_t>::min();
inline constexpr std::int64_t kInt32Max = std::numeric_limits<std::int32_t>::max();
constexpr NumericRule digitsRule(int length) {
    return {length, false, false, 0, 0};
}
constexpr NumericRule rangeRule(int length, std::int64_t min, std::int64_t max,
                                bool allowMinus = false) {
    return {length, allowMinus, true, min, max};
}
constexpr NumericRule textRule() {
    return {};
}

} // namespace marl
