# Where things go on "cmake --install": the library, its headers, a CMake package and a pkg-config
# file. Both packages are relocatable.
include(CMakePackageConfigHelpers)

install(TARGETS Nuv64 EXPORT Nuv64Targets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY include/nuv64 DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN *.h)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Nuv64)
install(EXPORT Nuv64Targets NAMESPACE Nuv64:: DESTINATION ${package_dir})
configure_package_config_file(cmake/Nuv64Config.cmake.in ${PROJECT_BINARY_DIR}/Nuv64Config.cmake
                              INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/Nuv64ConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/Nuv64Config.cmake ${PROJECT_BINARY_DIR}/Nuv64ConfigVersion.cmake
        DESTINATION ${package_dir})

# pkg-config finds the prefix from the place of the file itself.
file(RELATIVE_PATH pc_to_prefix /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
configure_file(cmake/nuv64.pc.in ${PROJECT_BINARY_DIR}/nuv64.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/nuv64.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
