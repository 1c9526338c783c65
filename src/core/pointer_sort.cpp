#include "nuv64/core/pointer_sort.h"

#include <cstdint>

namespace {

using Compare = int32_t (*)(const void* a, const void* b);

struct Order {
    Compare compare;
    bool descending;

    bool before(const void* a, const void* b) const {
        if (!compare) {
            const auto left = reinterpret_cast<std::uintptr_t>(a);
            const auto right = reinterpret_cast<std::uintptr_t>(b);
            return descending ? left > right : left < right;
        }
        const int32_t result = compare(a, b);
        return descending ? result > 0 : result < 0;
    }
};

// Lets value sink from place until no child sorts behind it. last is the heap's last index.
void siftDown(void** items, uint64_t place, uint64_t last, void* value, const Order& order) {
    for (uint64_t child = 2 * place + 1; child <= last; child = 2 * place + 1) {
        if (child < last && order.before(items[child], items[child + 1])) ++child;
        if (!order.before(value, items[child])) break;
        items[place] = items[child];
        place = child;
    }
    items[place] = value;
}

}  // namespace

void HeapSortByPointers(uint64_t n, void** items, Compare compare, int32_t direction) noexcept {
    if (!items || n < 2) return;
    const Order order{compare, direction < 0};
    for (uint64_t left = n / 2; left-- > 0;) siftDown(items, left, n - 1, items[left], order);
    for (uint64_t right = n - 1; right > 0; --right) {
        void* value = items[right];
        items[right] = items[0];
        if (right == 1) {
            items[0] = value;
        } else {
            siftDown(items, 0, right - 1, value, order);
        }
    }
}
