#include "nuv64/core/pointer_sort.h"

#include <cstdint>
#include <functional>

namespace {

using Compare = int32_t (*)(const void* a, const void* b);

// The heap's order, for ascending words, descending words, and by the caller's function.
struct Ascending {
    bool operator()(const void* a, const void* b) const { return std::less<>()(a, b); }
};
struct Descending {
    bool operator()(const void* a, const void* b) const { return std::less<>()(b, a); }
};
struct ByCaller {
    Compare compare;
    bool operator()(const void* a, const void* b) const { return compare(a, b) < 0; }
};
struct AgainstCaller {
    Compare compare;
    bool operator()(const void* a, const void* b) const { return compare(a, b) > 0; }
};

// Lets value sink from place until no child sorts behind it. last is the heap's last index.
//
// The hole goes all the way down first, along the greater children, and then up again to where
// value belongs (Wegener, Theoretical Computer Science 118, 81, 1993). That asks one question a
// level instead of two, and along the path, which is ordered, the place is the same, so that items
// which sort equal come out in the order of the plain sift.
template <class Before>
void siftDown(void** items, uint64_t place, uint64_t last, void* value, Before before) {
    const uint64_t top = place;
    for (uint64_t child = 2 * place + 1; child <= last; child = 2 * place + 1) {
        if (child < last) child += before(items[child], items[child + 1]);
        items[place] = items[child];
        place = child;
    }
    while (place != top) {
        const uint64_t parent = (place - 1) / 2;
        if (before(value, items[parent])) break;
        items[place] = items[parent];
        place = parent;
    }
    items[place] = value;
}

template <class Before>
void heapSort(uint64_t n, void** items, Before before) {
    for (uint64_t left = n / 2; left-- > 0;) siftDown(items, left, n - 1, items[left], before);
    for (uint64_t right = n - 1; right > 0; --right) {
        void* value = items[right];
        items[right] = items[0];
        if (right == 1) {
            items[0] = value;
        } else {
            siftDown(items, 0, right - 1, value, before);
        }
    }
}

}  // namespace

void HeapSortByPointers(uint64_t n, void** items, Compare compare, int32_t direction) noexcept {
    if (!items || n < 2) return;
    if (compare && direction < 0) return heapSort(n, items, AgainstCaller{compare});
    if (compare) return heapSort(n, items, ByCaller{compare});
    if (direction < 0) return heapSort(n, items, Descending{});
    heapSort(n, items, Ascending{});
}
