#pragma once
// How many bytes a program holds from operator new at any moment: each block
// carries its size in front of it.  This header replaces the global operator
// new and delete, so it is included by exactly one source file of a program
// (marl-bench, the table memory test).  One thread allocates in those
// programs: a plain count, which costs the allocations nothing.

#include <cstddef>
#include <cstdlib>
#include <new>

namespace marl::counting {

inline std::size_t liveBytes = 0;
inline constexpr std::size_t kHeader = alignof(std::max_align_t);

inline void* allocate(std::size_t size) {
    void* block = std::malloc(size + kHeader);
    if (!block)
        throw std::bad_alloc();
    *static_cast<std::size_t*>(block) = size;
    liveBytes += size;
    return static_cast<char*>(block) + kHeader;
}

inline void release(void* pointer) noexcept {
    if (!pointer)
        return;
    void* block = static_cast<char*>(pointer) - kHeader;
    liveBytes -= *static_cast<std::size_t*>(block);
    std::free(block);
}

} // namespace marl::counting

void* operator new(std::size_t size) {
    return marl::counting::allocate(size);
}
void* operator new[](std::size_t size) {
    return marl::counting::allocate(size);
}
void operator delete(void* pointer) noexcept {
    marl::counting::release(pointer);
}
void operator delete[](void* pointer) noexcept {
    marl::counting::release(pointer);
}
void operator delete(void* pointer, std::size_t) noexcept {
    marl::counting::release(pointer);
}
void operator delete[](void* pointer, std::size_t) noexcept {
    marl::counting::release(pointer);
}
