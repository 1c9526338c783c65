#include "nuv64/arrays/sorting.h"

#include <cstring>
#include <initializer_list>

#include "core/guard.h"
#include "nuv64/arrays/real_array.h"

using namespace nuv64;

namespace {

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

  private:
    unsigned char* arrays_[kMost];
    uint64_t held_[kMost];
    int count_ = 0;
};

// One record to sort: a key array with its order.
template <class Key, class Before>
class Keys {
  public:
    Keys(Key* keys, Before before) noexcept : keys_(keys), before_(before) {}
    void take(uint64_t i) noexcept { held_ = keys_[i]; }
    void put(uint64_t i) const noexcept { keys_[i] = held_; }
    void move(uint64_t from, uint64_t to) const noexcept { keys_[to] = keys_[from]; }
    bool before(uint64_t i, uint64_t j) const noexcept { return before_(keys_[i], keys_[j]); }
    bool heldBefore(uint64_t j) const noexcept { return before_(held_, keys_[j]); }

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
        return first_[i] < first_[j] || (first_[i] == first_[j] && second_[i] < second_[j]);
    }
    bool heldBefore(uint64_t j) const noexcept {
        return heldFirst_ < first_[j] || (heldFirst_ == first_[j] && heldSecond_ < second_[j]);
    }

  private:
    uint64_t* first_;
    double* second_;
    uint64_t heldFirst_ = 0;
    double heldSecond_ = 0.0;
};

// One loop builds the heap (left counts down) and then drains it (right counts down).
template <class KeySet>
void heapSort(uint64_t n, KeySet keys, Companions companions) noexcept {
    if (n < 2) return;
    uint64_t left = n / 2;
    uint64_t right = n - 1;
    for (;;) {
        if (left != 0) {
            --left;
            keys.take(left);
            companions.take(left);
        } else {
            keys.take(right);
            companions.take(right);
            keys.move(0, right);
            companions.move(0, right);
            if (--right == 0) {
                keys.put(0);
                companions.put(0);
                return;
            }
        }
        uint64_t i = left;
        for (uint64_t j = 2 * i + 1; j <= right; j = 2 * j + 1) {
            if (j < right && keys.before(j, j + 1)) ++j;
            if (!keys.heldBefore(j)) break;
            keys.move(j, i);
            companions.move(j, i);
            i = j;
        }
        keys.put(i);
        companions.put(i);
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
