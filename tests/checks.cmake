# Checks of the interface and of the tree. Those that read only text run in the plain native builds.
if(CMAKE_CROSSCOMPILING OR NUV64_SANITIZE)
    set(plain_build OFF)
else()
    set(plain_build ON)
endif()

# Every public header compiles alone, as C11 and as C++20.
file(GLOB public_headers CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}/include
     ${PROJECT_SOURCE_DIR}/include/nuv64/*.h ${PROJECT_SOURCE_DIR}/include/nuv64/*/*.h)
set(lone_headers)
foreach(header IN LISTS public_headers)
    string(MAKE_C_IDENTIFIER ${header} name)
    foreach(language c cpp)
        set(source ${CMAKE_CURRENT_BINARY_DIR}/headers/${name}.${language})
        file(CONFIGURE OUTPUT ${source} CONTENT "#include \"${header}\"\nextern int nuv64Lone;\n")
        list(APPEND lone_headers ${source})
    endforeach()
endforeach()

# Every listed prototype, declared anew behind its header, in both languages.
set(declarations)
foreach(language c cpp)
    set(source ${CMAKE_CURRENT_BINARY_DIR}/exported_declarations.${language})
    nuv64_from_exports(declarations ${source})
    list(APPEND declarations ${source})
endforeach()
add_library(header_check OBJECT ${lone_headers} ${declarations})
target_include_directories(header_check PRIVATE ${PROJECT_SOURCE_DIR}/include)
target_compile_definitions(header_check PRIVATE NUV64_STATIC)
target_link_libraries(header_check PRIVATE nuv64_options)
target_compile_options(header_check PRIVATE -Werror)

# The built library exports the list, no more and no less, and each name can be looked up in it.
if(WIN32)
    set(symbol_tool ${CMAKE_OBJDUMP})
    add_test(NAME exports.dll_imports
             COMMAND Python3::Interpreter ${PROJECT_SOURCE_DIR}/tools/check_dll_imports.py
                     $<TARGET_FILE:Nuv64> --objdump ${CMAKE_OBJDUMP})
else()
    set(symbol_tool ${CMAKE_NM})
endif()
add_test(NAME exports.library COMMAND Python3::Interpreter ${NUV64_EXPORTS_TOOL} library
         $<TARGET_FILE:Nuv64> --tool ${symbol_tool})
nuv64_from_exports(names ${CMAKE_CURRENT_BINARY_DIR}/exported_names.inc)
add_executable(exports_lookup exports/lookup_main.c ${CMAKE_CURRENT_BINARY_DIR}/exported_names.inc)
target_include_directories(exports_lookup PRIVATE ${CMAKE_CURRENT_BINARY_DIR})
target_link_libraries(exports_lookup PRIVATE nuv64_options ${CMAKE_DL_LIBS})
add_dependencies(exports_lookup Nuv64)
add_test(NAME exports.lookup COMMAND exports_lookup $<TARGET_FILE:Nuv64>)

if(plain_build)
    add_test(NAME exports.tested COMMAND Python3::Interpreter ${NUV64_EXPORTS_TOOL} tested)
    add_test(NAME exports.umbrella COMMAND Python3::Interpreter ${NUV64_EXPORTS_TOOL} umbrella)
    foreach(check layers house format)
        add_test(NAME tree.${check}
                 COMMAND Python3::Interpreter ${PROJECT_SOURCE_DIR}/tools/check_${check}.py)
        set_tests_properties(tree.${check} PROPERTIES SKIP_RETURN_CODE 77)
    endforeach()
    add_test(NAME tools COMMAND Python3::Interpreter -m unittest discover -s tests/tools -p *_test.py
             WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
endif()

# Hosts build and run against the installed package.
if(NOT NUV64_SANITIZE)
    set(package_arguments)
    if(CMAKE_CROSSCOMPILING)
        list(APPEND package_arguments -DTOOLCHAIN=${CMAKE_TOOLCHAIN_FILE})
    else()
        find_program(PKG_CONFIG pkg-config)
        list(APPEND package_arguments -DPKG_CONFIG=${PKG_CONFIG})
    endif()
    add_test(NAME package COMMAND ${CMAKE_COMMAND} -DBUILD=${PROJECT_BINARY_DIR}
             -DSOURCE=${CMAKE_CURRENT_SOURCE_DIR}/package -DWORK=${PROJECT_BINARY_DIR}/package_test
             -DC=${CMAKE_C_COMPILER} -DCXX=${CMAKE_CXX_COMPILER} ${package_arguments}
             "-DEMULATOR=${CMAKE_CROSSCOMPILING_EMULATOR}"
             -P ${CMAKE_CURRENT_SOURCE_DIR}/package/package_test.cmake)
endif()

# The example: its files are what its script makes, and koapp finds the rates that were put in.
set(examples ${PROJECT_SOURCE_DIR}/examples)
if(TARGET koapp)
    set(profile ${PROJECT_BINARY_DIR}/example_profile.csv)
    add_test(NAME example.evaluate COMMAND koapp evaluate ${examples}/ffc_example.sdf
             --script ${examples}/profile.task --profile-csv ${profile} --quiet)
    add_test(NAME example.rates COMMAND Python3::Interpreter ${examples}/compare.py ${profile})
    set_tests_properties(example.evaluate PROPERTIES FIXTURES_SETUP example_profile)
    set_tests_properties(example.rates PROPERTIES FIXTURES_REQUIRED example_profile)
endif()
if(plain_build)
    add_test(NAME example.files COMMAND Python3::Interpreter ${examples}/make_example.py --check)
endif()
