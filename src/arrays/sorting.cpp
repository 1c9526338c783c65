#include "nuv64/arrays/sorting.h"

#include <cstring>
#include <initializer_list>

#include "core/guard.h"
#include "nuv64/arrays/real_array.h"

using namespace nuv64;

namespace {

// Asks for the memory of 16 elements of 8 bytes from `first` on. They may lie beyond the array's
// end: hence by integers.
void fetch(const void* array, uint64_t first) noexcept {
    const uintptr_t start = reinterpret_cast<uintptr_t>(array) + 8 * first;
    for (uintptr_t offset : {0u, 64u, 120u}) {
        __builtin_prefetch(reinterpret_cast<const void*>(start + offset));
    }
}

// Arrays of 8-byte elements of any type that move with the keys; null ones are left out.
class Companions {
  public:
    static constexpr int kMost = 6;

    Companions(std::initializer_list<void*> arrays) noexcept {
        for (void* array : arrays) {
            if (array) arrays_[count_++] = static_cast<unsigned char*>(array);
        }
    }
    void take(uint64_t i) noexcept {
        for (int k = 0; k < count_; ++k) std::memcpy(held_ + k, arrays_[k] + 8 * i, 8);
    }
    void put(uint64_t i) const noexcept {
        for (int k = 0; k < count_; ++k) std::memcpy(arrays_[k] + 8 * i, held_ + k, 8);
    }
    void move(uint64_t from, uint64_t to) const noexcept {
        for (int k = 0; k < count_; ++k) std::memcpy(arrays_[k] + 8 * to, arrays_[k] + 8 * from, 8);
    }
    void fetch(uint64_t first) const noexcept {
        for (int k = 0; k < count_; ++k) ::fetch(arrays_[k], first);
    }

  private:
    unsigned char* arrays_[kMost];
    uint64_t held_[kMost];
    int count_ = 0;
};

// One record to sort: a key array with its order.
template <class Key, class Before>
class Keys {
  public:
    static constexpr bool kComparesWithoutBranch = true;

    Keys(Key* keys, Before before) noexcept : keys_(keys), before_(before) {}
    void take(uint64_t i) noexcept { held_ = keys_[i]; }
    void put(uint64_t i) const noexcept { keys_[i] = held_; }
    void move(uint64_t from, uint64_t to) const noexcept { keys_[to] = keys_[from]; }
    bool before(uint64_t i, uint64_t j) const noexcept { return before_(keys_[i], keys_[j]); }
    bool heldBefore(uint64_t j) const noexcept { return before_(held_, keys_[j]); }
    void fetch(uint64_t first) const noexcept { ::fetch(keys_, first); }

  private:
    Key* keys_;
    Before before_;
    Key held_{};
};

struct Ascending {
    template <class Key>
    bool operator()(const Key& a, const Key& b) const noexcept {
        return a < b;
    }
};

struct Descending {
    template <class Key>
    bool operator()(const Key& a, const Key& b) const noexcept {
        return a > b;
    }
};

// Two key arrays as one: the second decides where the first ties.
class KeyPair {
  public:
    static constexpr bool kComparesWithoutBranch = false;

    KeyPair(uint64_t* first, double* second) noexcept : first_(first), second_(second) {}
    void take(uint64_t i) noexcept {
        heldFirst_ = first_[i];
        heldSecond_ = second_[i];
    }
    void put(uint64_t i) const noexcept {
        first_[i] = heldFirst_;
        second_[i] = heldSecond_;
    }
    void move(uint64_t from, uint64_t to) const noexcept {
        first_[to] = first_[from];
        second_[to] = second_[from];
    }
    bool before(uint64_t i, uint64_t j) const noexcept {
        return before(first_[i], second_[i], first_[j], second_[j]);
    }
    bool heldBefore(uint64_t j) const noexcept {
        return before(heldFirst_, heldSecond_, first_[j], second_[j]);
    }

  private:
    static bool before(uint64_t first1, double second1, uint64_t first2, double second2) noexcept {
        return first1 < first2 || (first1 == first2 && second1 < second2);
    }

    uint64_t* first_;
    double* second_;
    uint64_t heldFirst_ = 0;
    double heldSecond_ = 0.0;
};

// Moves the larger children up from place i, as far as they are larger than the record in hand,
// which then gets the place of the last one. Which child is larger can't be foreseen: where the
// comparison is simple it is computed and not branched upon, and since nothing runs ahead of it
// then, the memory that the sift may reach four levels below is asked for.
template <class KeySet>
void siftDown(uint64_t i, uint64_t last, KeySet& keys, Companions& companions) noexcept {
    for (uint64_t j = 2 * i + 1; j <= last; j = 2 * j + 1) {
        if (j < last) {
            if constexpr (KeySet::kComparesWithoutBranch) {
                keys.fetch(8 * j + 7);
                companions.fetch(8 * j + 7);
            }
            j += keys.before(j, j + 1) ? 1 : 0;
        }
        if (!keys.heldBefore(j)) break;
        keys.move(j, i);
        companions.move(j, i);
        i = j;
    }
    keys.put(i);
    companions.put(i);
}

// Builds the heap from its last parent up, then drains it: the last record of the heap sifts down
// from the place of the largest one, which goes to the end.
template <class KeySet>
void heapSort(uint64_t n, KeySet keys, Companions companions) noexcept {
    if (n < 2) return;
    for (uint64_t i = n / 2; i-- > 0;) {
        keys.take(i);
        companions.take(i);
        siftDown(i, n - 1, keys, companions);
    }
    for (uint64_t last = n - 1; last > 0; --last) {
        keys.take(last);
        companions.take(last);
        keys.move(0, last);
        companions.move(0, last);
        siftDown(0, last - 1, keys, companions);
    }
}

template <class Key>
Key* sortAscending(Key* key, uint64_t n, Companions companions) noexcept {
    if (key) heapSort(n, Keys<Key, Ascending>(key, {}), companions);
    return key;
}

}  // namespace

double* RArrIpHeapSort(uint64_t n, double* array, int32_t sign) noexcept {
    if (n == 0 || !array) return nullptr;
    if (sign < 0) {
        heapSort(n, Keys<double, Descending>(array, {}), {});
    } else {
        heapSort(n, Keys<double, Ascending>(array, {}), {});
    }
    return array;
}

uint32_t RArrHeapSortCopy(uint64_t n, const double* in, double* out, int32_t sign) noexcept {
    if (!out) return 18;
    if (!in || n == 0) return 14;
    if (in != out) RArrCopy(n, in, out);
    RArrIpHeapSort(n, out, sign);
    return kSuccess;
}

double* RArrHeapSortR(double* key, uint64_t n, void* c1, void* c2, void* c3, void* c4, void* c5,
                      void* c6) noexcept {
    return sortAscending(key, n, {c1, c2, c3, c4, c5, c6});
}

uint64_t* RArrHeapSortD(uint64_t* key, uint64_t n, void* c1, void* c2, void* c3, void* c4, void* c5,
                        void* c6) noexcept {
    return sortAscending(key, n, {c1, c2, c3, c4, c5, c6});
}

int64_t* RArrHeapSortL(int64_t* key, uint64_t n, void* c1, void* c2, void* c3, void* c4, void* c5,
                       void* c6) noexcept {
    return sortAscending(key, n, {c1, c2, c3, c4, c5, c6});
}

uint64_t* RArrHeapSortDR(uint64_t* key1, double* key2, uint64_t n, void* c1, void* c2,
                         void* c3) noexcept {
    if (key1 && key2) heapSort(n, KeyPair(key1, key2), {c1, c2, c3});
    return key1;
}
