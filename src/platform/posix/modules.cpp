#include <dlfcn.h>
#include <gnu/lib-names.h>
#include <link.h>

#include <string>

#include "platform/module.h"
#include "platform/posix/native.h"

namespace nuv64::platform {

namespace {

std::int64_t asNumber(void* handle) noexcept {
    return static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(handle));
}

void* asAddress(std::int64_t handle) noexcept {
    return reinterpret_cast<void*>(static_cast<std::intptr_t>(handle));
}

struct Search {
    const struct link_map* first;
    const void* wanted;
    bool found = false;
};

int searchLoaded(struct dl_phdr_info*, std::size_t, void* data) noexcept {
    auto& search = *static_cast<Search*>(data);
    for (const struct link_map* map = search.first; map; map = map->l_next)
        search.found = search.found || map == search.wanted;
    return 1;  // one round is enough
}

// The loader trusts the handles that it is given; this looks into its list of modules first.
// dl_iterate_phdr holds the lock that keeps the list as it is meanwhile.
void* loadedModule(std::int64_t handle) noexcept {
    void* const host = ::dlopen(nullptr, RTLD_LAZY);
    Search search{static_cast<const struct link_map*>(host), asAddress(handle)};
    ::dl_iterate_phdr(&searchLoaded, &search);
    ::dlclose(host);
    if (search.found) return asAddress(handle);
    noteError(EBADF);
    return nullptr;
}

std::int64_t open(const std::string& native, int flags) noexcept {
    void* const module = ::dlopen(native.empty() ? nullptr : native.c_str(), flags);
    if (!module) noteError(ENOENT);
    return asNumber(module);
}

}  // namespace

std::int64_t loadModule(const char16_t* name) {
    const std::string native = nativePath(name ? name : u"");
    if (native.empty()) return noteError(ENOENT), 0;
    return open(native, RTLD_NOW | RTLD_LOCAL);
}

bool freeModule(std::int64_t module) noexcept {
    void* const loaded = loadedModule(module);
    return loaded && (::dlclose(loaded) == 0 || noteError(EINVAL));
}

std::int64_t moduleInMemory(const char16_t* name) {
    const std::int64_t module = open(nativePath(name ? name : u""), RTLD_LAZY | RTLD_NOLOAD);
    if (module) ::dlclose(asAddress(module));  // asking counts as a claim
    return module;
}

void* procAddress(std::int64_t module, const char* name) noexcept {
    void* const loaded = loadedModule(module);
    void* const address = loaded ? ::dlsym(loaded, name) : nullptr;
    if (loaded && !address) noteError(ENOENT);
    return address;
}

// The system's own functions are those of the C library.
void* systemProcAddress(const char* name) noexcept {
    void* const library = ::dlopen(LIBC_SO, RTLD_LAZY | RTLD_NOLOAD);
    void* const address = library ? ::dlsym(library, name) : nullptr;
    if (library) ::dlclose(library);
    if (!address) noteError(ENOENT);
    return address;
}

bool excludeFromFaultReport(const char16_t*) noexcept {
    return noteError(ENOSYS);
}

}  // namespace nuv64::platform
