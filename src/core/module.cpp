#include "nuv64/core/module.h"

#include <string>

#include "core/guard.h"
#include "core/system_text.h"
#include "platform/module.h"

namespace nuv64 {

namespace {

template <class Ch>
std::int64_t loadModule(const Ch* name) noexcept {
    return guardValue(std::int64_t{0}, [&] {
        platform::setLastError(0);
        return platform::loadModule(SystemText(name).get());
    });
}

template <class Ch>
std::int64_t moduleHandle(const Ch* name, std::uint32_t load) noexcept {
    return guardValue(std::int64_t{0}, [&] {
        platform::setLastError(0);
        const SystemText text(name);
        const std::int64_t present = platform::moduleInMemory(text.get());
        return present || !load ? present : platform::loadModule(text.get());
    });
}

// Names of functions are 8-bit texts for the system.
std::string functionName(const char16_t* name) {
    return platform::utf8FromWide(name ? name : u"");
}

}  // namespace

}  // namespace nuv64

using namespace nuv64;

int64_t OsLoadModule(const char16_t* name) noexcept {
    return loadModule(name);
}

int64_t OsLoadModuleA(const char* name) noexcept {
    return loadModule(name);
}

bool OsFreeModule(int64_t* module) noexcept {
    platform::setLastError(0);
    if (!module || *module == 0) return true;
    const bool freed = platform::freeModule(*module);
    *module = 0;
    return freed;
}

void* OsProcAddress(const char16_t* name, int64_t module) noexcept {
    return guardValue<void*>(nullptr, [&]() -> void* {
        platform::setLastError(0);
        const std::string function = functionName(name);
        if (function.empty() || module == 0) return nullptr;
        return platform::procAddress(module, function.c_str());
    });
}

void* OsOsProcAddress(const char16_t* name) noexcept {
    return guardValue<void*>(nullptr, [&]() -> void* {
        platform::setLastError(0);
        const std::string function = functionName(name);
        return function.empty() ? nullptr : platform::systemProcAddress(function.c_str());
    });
}

int64_t OsModuleHandle(const char16_t* name, uint32_t load) noexcept {
    return moduleHandle(name, load);
}

int64_t OsModuleHandleA(const char* name, uint32_t load) noexcept {
    return moduleHandle(name, load);
}

bool OsNoEmailsToMs(const char16_t* path) noexcept {
    platform::setLastError(0);
    return path && platform::excludeFromFaultReport(path);
}
