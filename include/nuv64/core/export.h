/* How a name leaves the module, and how C and C++ callers see it.
 *
 * NUV64_API marks an exported name; everything else in the module is hidden. NUV64_STATIC is
 * defined by programs that link the object files instead of the shared module (the tests do).
 * NUV64_NOEXCEPT stands behind every exported prototype: no export lets an exception out. */
#ifndef NUV64_CORE_EXPORT_H
#define NUV64_CORE_EXPORT_H

#if defined(_WIN32) && !defined(NUV64_STATIC)
#if defined(NUV64_BUILDING)
#define NUV64_API __declspec(dllexport)
#else
#define NUV64_API __declspec(dllimport)
#endif
#elif defined(__GNUC__)
#define NUV64_API __attribute__((visibility("default")))
#else
#define NUV64_API
#endif

#ifdef __cplusplus
#define NUV64_NOEXCEPT noexcept
#define NUV64_BEGIN_DECLS extern "C" {
#define NUV64_END_DECLS }
#else
#define NUV64_NOEXCEPT
#define NUV64_BEGIN_DECLS
#define NUV64_END_DECLS
#endif

#endif
