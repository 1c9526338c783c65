#include "platform/module.h"

#include <array>

#include "platform/windows/native.h"

namespace nuv64::platform {

namespace {

std::int64_t moduleNumber(HMODULE module) noexcept {
    return static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(module));
}

HMODULE asModule(std::int64_t module) noexcept {
    return reinterpret_cast<HMODULE>(static_cast<std::intptr_t>(module));
}

void* functionIn(HMODULE module, const char* name) noexcept {
    return reinterpret_cast<void*>(::GetProcAddress(module, name));
}

}  // namespace

std::int64_t loadModule(const char16_t* name) {
    if (!name || !*name) {
        ::SetLastError(ERROR_MOD_NOT_FOUND);
        return 0;
    }
    return moduleNumber(::LoadLibraryW(wide(name)));
}

bool freeModule(std::int64_t module) noexcept {
    return ::FreeLibrary(asModule(module)) != 0;
}

std::int64_t moduleInMemory(const char16_t* name) {
    return moduleNumber(::GetModuleHandleW(name && *name ? wide(name) : nullptr));
}

void* procAddress(std::int64_t module, const char* name) noexcept {
    return functionIn(asModule(module), name);
}

void* systemProcAddress(const char* name) noexcept {
    static constexpr std::array kSystemModules = {L"kernel32", L"user32", L"advapi32", L"shell32",
                                                  L"ntdll"};
    for (const wchar_t* module : kSystemModules)
        if (void* const address = functionIn(::GetModuleHandleW(module), name)) return address;
    return nullptr;
}

bool excludeFromFaultReport(const char16_t* path) noexcept {
    using Exclude = BOOL(WINAPI*)(const wchar_t*);
    // From the system's folder alone, where no other program can put one.
    const HMODULE library =
        ::LoadLibraryExW(L"faultrep.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (!library) return false;
    const auto exclude =
        reinterpret_cast<Exclude>(functionIn(library, "AddERExcludedApplicationW"));
    if (exclude) exclude(wide(path));
    ::FreeLibrary(library);
    return exclude != nullptr;
}

}  // namespace nuv64::platform
