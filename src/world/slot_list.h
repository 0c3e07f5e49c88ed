#pragma once
// A fixed number of slots of one kind inside a record (the 128 extra
// descriptions or affects of an object), of which only the first few are
// ever used.  Only the slots up to the last one handed out for change are
// stored; every slot after them reads as the cleared entry.  A record so
// costs a few hundred bytes instead of many kilobytes, which keeps clearing,
// copying and reading a table of 101 records cheap.
//
// How many entries are in use is held apart from what they hold: the server
// boots an extra description with empty keywords or an affect of location 0,
// so an entry's contents cannot say where the list ends.  Slots 0 to
// count() - 1 are in use and written; the slots after them are not.

#include <cstddef>
#include <iterator>
#include <span>
#include <stdexcept>
#include <vector>

namespace marl {

template <typename T, std::size_t N> class SlotList {
public:
    static constexpr std::size_t size() { return N; }

    const T& operator[](std::size_t slot) const {
        if (slot < held_.size())
            return held_[slot];
        check(slot);
        return cleared();
    }
    // Handing out a slot for change stores it and every slot before it.
    T& operator[](std::size_t slot) {
        if (slot >= held_.size()) {
            check(slot);
            held_.resize(slot + 1);
        }
        return held_[slot];
    }

    // All N slots, stored, for code that works on them as one array.  The
    // span stays valid until the list is cleared; what it changes counts as
    // in use only once setCount says so.
    std::span<T, N> all() {
        held_.resize(N);
        return std::span<T, N>(held_.data(), N);
    }
    operator std::span<T>() { return all(); }

    // The entries in use: slots 0 to count() - 1.
    std::size_t count() const { return used_; }
    // The slot after the entries in use, put in use.  Throws out_of_range
    // when all N are in use.
    T& append() {
        T& entry = (*this)[used_];
        ++used_;
        return entry;
    }
    // Slots 0 to `count` - 1 in use, for code that has written them through
    // all() or operator[]; the slots themselves are left as they are.
    void setCount(std::size_t count) {
        if (count > N)
            check(count);
        used_ = count;
    }

    // Every slot back to the cleared entry, none in use.
    void clear() {
        held_.clear();
        used_ = 0;
    }

    class const_iterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = T;
        using difference_type = std::ptrdiff_t;
        using pointer = const T*;
        using reference = const T&;

        const_iterator() = default;
        const_iterator(const SlotList* list, std::size_t slot) : list_(list), slot_(slot) {}
        reference operator*() const { return (*list_)[slot_]; }
        pointer operator->() const { return &(*list_)[slot_]; }
        const_iterator& operator++() {
            ++slot_;
            return *this;
        }
        const_iterator operator++(int) {
            const_iterator before = *this;
            ++slot_;
            return before;
        }
        bool operator==(const const_iterator& other) const { return slot_ == other.slot_; }

    private:
        const SlotList* list_ = nullptr;
        std::size_t slot_ = 0;
    };

    const_iterator begin() const { return const_iterator(this, 0); }
    const_iterator end() const { return const_iterator(this, N); }
    // A loop over the slots reads them; a change goes through operator[].

    bool operator==(const SlotList& other) const {
        if (used_ != other.used_)
            return false;
        for (std::size_t slot = 0; slot < N; ++slot) {
            if (slot >= held_.size() && slot >= other.held_.size())
                return true;
            if (!((*this)[slot] == other[slot]))
                return false;
        }
        return true;
    }

private:
    static void check(std::size_t slot) {
        if (slot >= N)
            throw std::out_of_range("slot beyond the end of a slot list");
    }
    static const T& cleared() {
        static const T entry{};
        return entry;
    }

    std::vector<T> held_;
    std::size_t used_ = 0;
};

} // namespace marl
