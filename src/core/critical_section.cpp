#include "nuv64/core/critical_section.h"

#include "platform/process.h"

using namespace nuv64;

void* OsMakeCriticalSection() noexcept {
    return platform::makeCriticalSection();
}

void OsEnterCriticalSection(void* section) noexcept {
    if (section) platform::enterCriticalSection(section);
}

bool OsTryEnterCriticalSection(void* section) noexcept {
    return section && platform::tryEnterCriticalSection(section);
}

void OsLeaveCriticalSection(void* section) noexcept {
    if (section) platform::leaveCriticalSection(section);
}

void OsDeleteCriticalSection(void* section) noexcept {
    if (section) platform::deleteCriticalSection(section);
}
