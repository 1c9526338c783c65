/* The module's version. The build, the package files and command 3 all read it from here. */
#ifndef NUV64_CORE_VERSION_H
#define NUV64_CORE_VERSION_H

#define NUV64_VERSION_MAJOR 1
#define NUV64_VERSION_MINOR 0
#define NUV64_VERSION_BUILD 520

#endif
