/* Loads the built library as a host does at run time and looks every listed name up in it.
 * usage: exports_lookup LIBRARY */
#include <stdio.h>

#include "exported_names.inc"

#if defined(_WIN32)
#include <windows.h>
static void* openLibrary(const char* path) {
    return (void*)LoadLibraryA(path);
}
static int hasName(void* library, const char* name) {
    return GetProcAddress((HMODULE)library, name) != NULL;
}
#else
#include <dlfcn.h>
static void* openLibrary(const char* path) {
    return dlopen(path, RTLD_NOW | RTLD_LOCAL);
}
static int hasName(void* library, const char* name) {
    return dlsym(library, name) != NULL;
}
#endif

int main(int argc, char** argv) {
    int found = 0;
    int missing = 0;
    void* library = argc == 2 ? openLibrary(argv[1]) : NULL;
    if (!library) {
        fprintf(stderr, "cannot load %s\n", argc == 2 ? argv[1] : "(no library given)");
        return 2;
    }
    for (int i = 0; exportedNames[i]; ++i) {
        if (hasName(library, exportedNames[i])) {
            ++found;
        } else {
            ++missing;
            fprintf(stderr, "not found: %s\n", exportedNames[i]);
        }
    }
    printf("%d names found, %d missing\n", found, missing);
    return missing ? 1 : 0;
}
