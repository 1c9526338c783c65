// Loaded modules of the process. A handle is 0 for none.
#pragma once

#include <cstdint>

namespace nuv64::platform {

std::int64_t loadModule(const char16_t* name);
bool freeModule(std::int64_t module) noexcept;
// A module that is in memory, without a claim on it; null or empty for the host's executable.
std::int64_t moduleInMemory(const char16_t* name);
void* procAddress(std::int64_t module, const char* name) noexcept;
// The address of one of the system's own functions.
void* systemProcAddress(const char* name) noexcept;
// Takes an application out of the system's fault report; false where there is none.
bool excludeFromFaultReport(const char16_t* path) noexcept;

}  // namespace nuv64::platform
