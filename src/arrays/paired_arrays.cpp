#include "nuv64/arrays/paired_arrays.h"

#include <cmath>
#include <cstddef>

#include "arrays/array_basics.h"
#include "nuv64/core/memory.h"

using namespace nuv64;

static_assert(sizeof(RArrPairedRec) == 40 && offsetof(RArrPairedRec, Capacity) == 24);

namespace {

constexpr uint64_t kDefaultCapacity = 10;
constexpr uint64_t kGrowth = 10;

RArrPairedRec* recordOf(RArrPairedRec** handle) noexcept {
    return handle ? *handle : nullptr;
}

bool addToKnownKey(RArrPairedRec* record, double value, double key) noexcept {
    if (!(record->Tolerance > 0.0)) return false;
    for (uint64_t i = 0; i < record->Count; ++i) {
        if (record->Tolerance > std::fabs(key - record->Second[i])) {
            record->First[i] += value;
            return true;
        }
    }
    return false;
}

Owned<double> grownCopy(const RArrPairedRec* record, const double* array) {
    Owned<double> copy = allocate<double>(record->Capacity + kGrowth);
    copyArray<double>(record->Count, array, copy.get());
    return copy;
}

void grow(RArrPairedRec* record) {
    Owned<double> first = grownCopy(record, record->First);
    Owned<double> second = grownCopy(record, record->Second);
    RArrKill(&record->First);
    RArrKill(&record->Second);
    record->First = first.release();
    record->Second = second.release();
    record->Capacity += kGrowth;
}

}  // namespace

uint32_t NewRArrPairedArrays(RArrPairedRec** handle, double tolerance, uint64_t capacity) noexcept {
    if (!handle) return 18;
    *handle = nullptr;
    if (capacity == 0) capacity = kDefaultCapacity;
    return guardStatus([&] {
        Owned<double> first = allocate<double>(capacity);
        Owned<double> second = allocate<double>(capacity);
        Owned<RArrPairedRec> record = allocate<RArrPairedRec>(1);
        record[0] = {0, first.release(), second.release(), capacity, tolerance};
        *handle = record.release();
        return kSuccess;
    });
}

uint32_t RArrPairedAddPair(double value, double key, RArrPairedRec** handle) noexcept {
    RArrPairedRec* const record = recordOf(handle);
    if (!record) return 18;
    if (addToKnownKey(record, value, key)) return kSuccess;
    record->First[record->Count] = value;
    record->Second[record->Count] = key;
    ++record->Count;
    if (record->Count < record->Capacity) return kSuccess;
    const uint32_t status = guardStatus([&] {
        grow(record);
        return kSuccess;
    });
    if (status != kSuccess) RArrPairedDelete(handle);
    return status;
}

uint32_t RArrPairedGetPointers(uint64_t* count, double** first, double** second,
                               RArrPairedRec** handle) noexcept {
    const RArrPairedRec* const record = recordOf(handle);
    if (first) *first = record ? record->First : nullptr;
    if (second) *second = record ? record->Second : nullptr;
    if (!record) return 14;
    if (count) *count = record->Count;
    return kSuccess;
}

uint32_t RArrPairedReset(RArrPairedRec** handle) noexcept {
    RArrPairedRec* const record = recordOf(handle);
    if (!record) return 18;
    record->Count = 0;
    return kSuccess;
}

uint32_t RArrPairedDelete(RArrPairedRec** handle) noexcept {
    RArrPairedRec* const record = recordOf(handle);
    if (!record) return kSuccess;
    RArrKill(&record->First);
    RArrKill(&record->Second);
    std::free(record);
    *handle = nullptr;
    return kSuccess;
}
