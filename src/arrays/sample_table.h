// Tables of samples in their two layouts, and the search in them.
#pragma once

#include <cstdint>

namespace nuv64 {

class PairTable {
  public:
    PairTable(const double* pairs, uint64_t n) noexcept : pairs_(pairs), n_(n) {}
    bool missing() const noexcept { return !pairs_ || n_ == 0; }
    uint64_t size() const noexcept { return n_; }
    double x(uint64_t i) const noexcept { return pairs_[2 * i]; }
    double y(uint64_t i) const noexcept { return pairs_[2 * i + 1]; }

  private:
    const double* pairs_;
    uint64_t n_;
};

class TwoArrayTable {
  public:
    TwoArrayTable(const double* x, const double* y, uint64_t n) noexcept : x_(x), y_(y), n_(n) {}
    bool missing() const noexcept { return !x_ || !y_ || n_ == 0; }
    uint64_t size() const noexcept { return n_; }
    double x(uint64_t i) const noexcept { return x_[i]; }
    double y(uint64_t i) const noexcept { return y_[i]; }

  private:
    const double* x_;
    const double* y_;
    uint64_t n_;
};

// The lower index of the two neighbours around x, of at least two samples, by bisection.
template <class Table>
uint64_t lowerNeighbour(const Table& table, double x) noexcept {
    uint64_t low = 0;
    uint64_t high = table.size() - 1;
    while (high - low > 1) {
        const uint64_t middle = low + (high - low) / 2;
        (table.x(middle) > x ? high : low) = middle;
    }
    return low;
}

}  // namespace nuv64
