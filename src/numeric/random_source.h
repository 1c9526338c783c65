// The generator behind pRgUniform0 and pRgNormal0, as an object of its own so that a known seed can
// be followed.
#pragma once

#include <cstdint>

namespace nuv64 {

class RandomSource {
  public:
    explicit RandomSource(std::uint64_t seed) noexcept;
    // The bare recurrence: 1 to 2^31 - 2.
    std::int64_t next() noexcept;
    double uniform() noexcept;
    double normal() noexcept;

  private:
    static constexpr int kEntries = 32;

    std::int64_t state_;
    std::int64_t table_[kEntries];
    std::int64_t previous_;
    double spare_ = 0.0;
    bool hasSpare_ = false;
};

}  // namespace nuv64
