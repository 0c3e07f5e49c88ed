#pragma once
// What a dialog is handed of the record its editor shows: a way to that
// record (or a part of it), whatever slot it is in.  A dialog writes into
// the record shown and into no other; the document decides what Save and
// Delete make of it (see record_document.h).

#include <functional>

namespace marl {

template <typename Part> class Shown {
public:
    // None yet: a dialog's, until it is set up.
    Shown() = default;
    explicit Shown(std::function<Part&()> reach) : reach_(std::move(reach)) {}
    Part& operator*() const { return reach_(); }
    Part* operator->() const { return &reach_(); }
    explicit operator bool() const { return static_cast<bool>(reach_); }

private:
    std::function<Part&()> reach_;
};

} // namespace marl
