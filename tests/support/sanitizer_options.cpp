// Read by the address sanitizer's runtime: a request that is too large fails with null, as it does
// without the sanitizer, so that the tests of short memory can run. The runtime is a library of its
// own and finds the function only when it is visible.
extern "C" [[gnu::visibility("default")]] const char* __asan_default_options();

extern "C" const char* __asan_default_options() {
    return "allocator_may_return_null=1";
}
