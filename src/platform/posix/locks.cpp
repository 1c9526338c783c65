#include <mutex>
#include <new>

#include "platform/process.h"

namespace nuv64::platform {

namespace {

std::recursive_mutex* mutexOf(void* section) noexcept {
    return static_cast<std::recursive_mutex*>(section);
}

}  // namespace

void* makeCriticalSection() noexcept {
    return new (std::nothrow) std::recursive_mutex;
}

void enterCriticalSection(void* section) noexcept {
    mutexOf(section)->lock();
}

bool tryEnterCriticalSection(void* section) noexcept {
    return mutexOf(section)->try_lock();
}

void leaveCriticalSection(void* section) noexcept {
    mutexOf(section)->unlock();
}

void deleteCriticalSection(void* section) noexcept {
    delete mutexOf(section);
}

}  // namespace nuv64::platform
