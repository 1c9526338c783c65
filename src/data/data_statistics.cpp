// The ten numbers that a node keeps for each of its channels.
#include <algorithm>
#include <cmath>

#include "core/guard.h"
#include "data/data_object.h"
#include "nuv64/arrays/noise.h"
#include "nuv64/arrays/real_array.h"
#include "nuv64/arrays/real_array_means.h"
#include "nuv64/arrays/signal_array.h"
#include "nuv64/core/special_reals.h"

namespace {

constexpr std::uint32_t kMissingData = 14;
constexpr std::uint32_t kIllegalParameters = 25;
constexpr std::uint32_t kIllegalArgument = 26;

enum Slot : std::uint64_t {
    kNoise = 3,
    kMean = 4,
    kSmallest = 5,
    kLargest = 6,
    kMagnitude = 7,
    kPower = 8,
    kScale = 9,
};

}  // namespace

double cKoData::ChannelStatistic(std::uint64_t channel, std::uint64_t slot) {
    if (channel >= Channels || slot >= kStatisticSlots) return ___NAN;
    ComputeStatistic(channel, slot, 0, UINT64_MAX);
    return ChannelStatistics[channel * kStatisticSlots + slot];
}

std::uint32_t cKoData::noise(std::uint64_t channel, std::uint64_t from, std::uint64_t n) {
    double sigma = ___NAN;
    const std::uint32_t status = RArrNoiseEstimateBySavitskyGolay(n, Channel(channel) + from,
                                                                  &sigma, nullptr, 3, 17, 3, 3.0);
    if (status == nuv64::kSuccess) ChannelStatistics[channel * kStatisticSlots + kNoise] = sigma;
    return status;
}

std::uint32_t cKoData::extreme(std::uint64_t channel, std::uint64_t slot, std::uint64_t from,
                               std::uint64_t n) {
    const double* values = Channel(channel) + from;
    std::uint64_t smallest = UINT64_MAX;
    std::uint64_t largest = UINT64_MAX;
    RArrRangeMinMax(n, values, &smallest, &largest);
    const std::uint64_t index = slot == kSmallest ? smallest : largest;
    if (index >= n) return kMissingData;
    ChannelStatistics[channel * kStatisticSlots + slot] = values[index];
    return nuv64::kSuccess;
}

// Channels 1 and 2 are the signal, whatever channel asked.
std::uint32_t cKoData::strongest(std::uint64_t channel, std::uint64_t slot, std::uint64_t from,
                                 std::uint64_t n) {
    if (Channels < 3) return kMissingData;
    const auto measure = slot == kMagnitude ? SArrMaxMagnitude : SArrMaxPower;
    double& result = ChannelStatistics[channel * kStatisticSlots + slot];
    std::uint64_t index = 0;
    if (n == Points) {
        result = measure(n, Channel(1), &index);
        return nuv64::kSuccess;
    }
    nuv64::Owned<double> signal = nuv64::tryAllocate<double>(2 * n);
    if (!signal) return nuv64::kAllocationFailure;
    std::copy_n(Channel(1) + from, n, signal.get());
    std::copy_n(Channel(2) + from, n, signal.get() + n);
    result = measure(n, signal.get(), &index);
    return nuv64::kSuccess;
}

std::uint32_t cKoData::ComputeStatistic(std::uint64_t channel, std::uint64_t slot,
                                        std::uint64_t from, std::uint64_t to) {
    if (channel >= Channels || slot >= kStatisticSlots) return kIllegalArgument;
    if (from > UINT64_MAX - 1) from = 0;
    if (to >= Points) to = Points - 1;
    if (from > to) return nuv64::kSuccess;
    const std::uint64_t n = to - from + 1;
    if (n > Points) return kIllegalParameters;
    double& stored = ChannelStatistics[channel * kStatisticSlots + slot];
    switch (slot) {
        case kNoise:
            return noise(channel, from, n);
        case kMean:
            stored = RArrMeanA(n, Channel(channel) + from);
            break;
        case kSmallest:
        case kLargest:
            return extreme(channel, slot, from, n);
        case kMagnitude:
        case kPower:
            return strongest(channel, slot, from, n);
        // Normalizing keeps here the factor that brings back absolute values.
        case kScale:
            if (std::isnan(stored)) stored = 1.0;
            break;
        default:
            break;
    }
    return nuv64::kSuccess;
}
