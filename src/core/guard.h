// The guard that stands around every export that can meet an exception: it runs the body and turns
// what escapes into the documented failure. Nothing that can throw stands outside it.
#pragma once

#include <cstdint>
#include <new>
#include <stdexcept>
#include <utility>

namespace nuv64 {

// Status words that the code names often; all of them stand in core/status.cpp with their texts.
inline constexpr std::uint32_t kSuccess = 0;
inline constexpr std::uint32_t kAllocationFailure = 0x80001;
inline constexpr std::uint32_t kInternalError = 47;

// A status on its way out of nested calls. Only where returning it would bury the logic.
struct StatusError {
    std::uint32_t status;
};

// Must be called inside a catch block.
inline std::uint32_t statusOfCurrentException() noexcept {
    try {
        throw;
    } catch (const StatusError& error) {
        return error.status;
    } catch (const std::bad_alloc&) {
        return kAllocationFailure;
    } catch (const std::length_error&) {
        return kAllocationFailure;
    } catch (...) {
        return kInternalError;
    }
}

// For functions that return a status.
template <class Body>
std::uint32_t guardStatus(Body&& body) noexcept {
    try {
        return std::forward<Body>(body)();
    } catch (...) {
        return statusOfCurrentException();
    }
}

// For functions that report by a failure value alone.
template <class Result, class Body>
Result guardValue(Result failure, Body&& body) noexcept {
    try {
        return std::forward<Body>(body)();
    } catch (...) {
        return failure;
    }
}

// For makers: clears *status, returns null and sets *status on failure. A null status is allowed.
template <class Result, class Body>
Result* guardMaker(std::uint32_t* status, Body&& body) noexcept {
    if (status) *status = kSuccess;
    try {
        return std::forward<Body>(body)();
    } catch (...) {
        if (status) *status = statusOfCurrentException();
        return nullptr;
    }
}

}  // namespace nuv64
