# The module: an object library for each subsystem, linked into one shared library. The tests and
# tools of the project link the same objects (nuv64_objects) to reach what is hidden.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
set(NUV64_SUBSYSTEMS platform core numeric arrays fits data evaluation host)

add_library(nuv64_objects INTERFACE)
target_include_directories(nuv64_objects INTERFACE ${PROJECT_SOURCE_DIR}/include
                           ${PROJECT_SOURCE_DIR}/src)
target_compile_definitions(nuv64_objects INTERFACE NUV64_STATIC)
set(nuv64_all_objects)
foreach(subsystem IN LISTS NUV64_SUBSYSTEMS)
    file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/${subsystem}/*.cpp)
    if(subsystem STREQUAL platform)
        if(WIN32)
            file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/platform/windows/*.cpp)
        else()
            file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/platform/posix/*.cpp)
        endif()
    endif()
    if(sources)
        add_library(nuv64_${subsystem} OBJECT ${sources})
        target_include_directories(nuv64_${subsystem} PRIVATE ${PROJECT_SOURCE_DIR}/include
                                   ${PROJECT_SOURCE_DIR}/src)
        target_compile_definitions(nuv64_${subsystem} PRIVATE NUV64_BUILDING)
        target_link_libraries(nuv64_${subsystem} PRIVATE nuv64_options)
        list(APPEND nuv64_all_objects $<TARGET_OBJECTS:nuv64_${subsystem}>)
        target_sources(nuv64_objects INTERFACE $<TARGET_OBJECTS:nuv64_${subsystem}>)
    endif()
endforeach()
if(WIN32)
    set(NUV64_SYSTEM_LIBRARIES ole32 shell32 comdlg32 user32 version advapi32)
    target_link_libraries(nuv64_objects INTERFACE ${NUV64_SYSTEM_LIBRARIES})
endif()
target_link_libraries(nuv64_objects INTERFACE nuv64_options)

# What is made from the list of exports.
set(NUV64_EXPORTS_TOOL ${PROJECT_SOURCE_DIR}/tools/exports.py)
set(NUV64_EXPORTS_LIST ${PROJECT_SOURCE_DIR}/exports/exports.tsv)
function(nuv64_from_exports command output)
    add_custom_command(OUTPUT ${output}
        COMMAND ${Python3_EXECUTABLE} ${NUV64_EXPORTS_TOOL} ${command} ${output}
        COMMAND ${CMAKE_COMMAND} -E touch ${output}
        DEPENDS ${NUV64_EXPORTS_TOOL} ${NUV64_EXPORTS_LIST} VERBATIM)
endfunction()

if(WIN32)
    set(nuv64_export_file ${PROJECT_BINARY_DIR}/exports/Nuv64.def)
    nuv64_from_exports(def ${nuv64_export_file})
else()
    set(nuv64_export_file ${PROJECT_BINARY_DIR}/exports/Nuv64.map)
    nuv64_from_exports(version-script ${nuv64_export_file})
endif()

add_library(Nuv64 SHARED ${nuv64_all_objects} ${nuv64_export_file})
add_library(Nuv64::Nuv64 ALIAS Nuv64)
set_target_properties(Nuv64 PROPERTIES
    LINKER_LANGUAGE CXX
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR}
    LINK_DEPENDS ${nuv64_export_file}
    LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib
    ARCHIVE_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib
    RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
target_include_directories(Nuv64 INTERFACE $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
                           $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
target_link_libraries(Nuv64 PRIVATE $<BUILD_INTERFACE:nuv64_options> ${NUV64_SYSTEM_LIBRARIES})
if(WIN32)
    # Nuv64.dll, found through libNuv64.dll.a.
    set_target_properties(Nuv64 PROPERTIES PREFIX "" IMPORT_PREFIX lib)
else()
    # A listed name that no object defines breaks the link, as the .def file makes it on Windows.
    target_link_options(Nuv64 PRIVATE -Wl,--version-script=${nuv64_export_file}
                        -Wl,--no-undefined-version)
    if(NOT NUV64_SANITIZE)
        target_link_options(Nuv64 PRIVATE -Wl,--no-undefined)
    endif()
endif()
