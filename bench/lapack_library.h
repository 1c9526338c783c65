// A BLAS and LAPACK opened at run time, so that several of them can be timed in one run. Each comes
// into a namespace of its own: netlib's LAPACK must find netlib's BLAS and no other one.
#pragma once

#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>

namespace bench {

class LapackLibrary {
  public:
    using Gemm = void (*)(const char*, const char*, const int*, const int*, const int*,
                          const double*, const double*, const int*, const double*, const int*,
                          const double*, double*, const int*);
    using Getrf = void (*)(const int*, const int*, double*, const int*, int*, int*);
    using Getri = void (*)(const int*, double*, const int*, const int*, double*, const int*, int*);
    using Syev = void (*)(const char*, const char*, const int*, double*, const int*, double*,
                          double*, const int*, int*);
    using Gesvd = void (*)(const char*, const char*, const int*, const int*, double*, const int*,
                           double*, double*, const int*, double*, const int*, double*, const int*,
                           int*);
    using Gesdd = void (*)(const char*, const int*, const int*, double*, const int*, double*,
                           double*, const int*, double*, const int*, double*, const int*, int*,
                           int*);

    LapackLibrary(const char* blasPath, const char* lapackPath) {
        ::setenv("OPENBLAS_NUM_THREADS", "1", 1);
        void* const blas = ::dlmopen(LM_ID_NEWLM, blasPath, RTLD_NOW | RTLD_LOCAL);
        Lmid_t space = LM_ID_BASE;
        if (!blas || ::dlinfo(blas, RTLD_DI_LMID, &space) != 0) {
            std::fprintf(stderr, "%s\n", ::dlerror());
            return;
        }
        void* const lapack =
            lapackPath ? ::dlmopen(space, lapackPath, RTLD_NOW | RTLD_LOCAL) : blas;
        if (!lapack) {
            std::fprintf(stderr, "%s\n", ::dlerror());
            return;
        }
        find(blas, "dgemm_", gemm);
        find(lapack, "dgetrf_", getrf);
        find(lapack, "dgetri_", getri);
        find(lapack, "dsyev_", syev);
        find(lapack, "dgesvd_", gesvd);
        find(lapack, "dgesdd_", gesdd);
        void (*threads)(int) = nullptr;
        find(blas, "openblas_set_num_threads", threads);
        if (threads) threads(1);
    }

    Gemm gemm = nullptr;
    Getrf getrf = nullptr;
    Getri getri = nullptr;
    Syev syev = nullptr;
    Gesvd gesvd = nullptr;
    Gesdd gesdd = nullptr;

  private:
    template <class Function>
    static void find(void* library, const char* name, Function& function) {
        function = reinterpret_cast<Function>(::dlsym(library, name));
    }
};

// Null members where the library isn't installed.
inline const LapackLibrary& netlib() {
    static const LapackLibrary library("/usr/lib/x86_64-linux-gnu/blas/libblas.so.3",
                                       "/usr/lib/x86_64-linux-gnu/lapack/liblapack.so.3");
    return library;
}

inline const LapackLibrary& openBlas() {
    static const LapackLibrary library(
        "/usr/lib/x86_64-linux-gnu/openblas-pthread/libopenblas.so.0", nullptr);
    return library;
}

}  // namespace bench
