# Installs the build to a fresh prefix and builds and runs a C and a C++ host against what is there,
# by find_package and, where it is given, by pkg-config.
# cmake -DBUILD= -DSOURCE= -DWORK= -DC= -DCXX= [-DTOOLCHAIN=] [-DEMULATOR=] [-DPKG_CONFIG=] -P ...
cmake_minimum_required(VERSION 3.25)

function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE err)
    if(NOT result EQUAL 0)
        list(JOIN ARGN " " called)
        message(FATAL_ERROR "${called}: status ${result}\n${out}${err}")
    endif()
    set(out "${out}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE ${WORK})
# The package must not depend on where it was installed first.
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/first)
file(RENAME ${WORK}/first ${WORK}/prefix)

set(toolchain)
if(TOOLCHAIN)
    set(toolchain -DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN} -DCMAKE_EXE_LINKER_FLAGS=-static
        -DCMAKE_FIND_ROOT_PATH=${WORK}/prefix
        -DCMAKE_FIND_ROOT_PATH_MODE_PACKAGE=BOTH)
endif()
run(${CMAKE_COMMAND} -G Ninja -S ${SOURCE}/consumer -B ${WORK}/by_cmake -DCMAKE_BUILD_TYPE=Release
    -DCMAKE_C_COMPILER=${C} -DCMAKE_CXX_COMPILER=${CXX} -DNuv64_ROOT=${WORK}/prefix ${toolchain})
run(${CMAKE_COMMAND} --build ${WORK}/by_cmake)
set(programs ${WORK}/by_cmake/consumer_c ${WORK}/by_cmake/consumer_cpp)

if(PKG_CONFIG)
    file(GLOB_RECURSE pc ${WORK}/prefix/*/nuv64.pc)
    get_filename_component(pc_folder ${pc} DIRECTORY)
    set(ENV{PKG_CONFIG_PATH} ${pc_folder})
    run(${PKG_CONFIG} --cflags --libs nuv64)
    separate_arguments(flags UNIX_COMMAND "${out}")
    run(${PKG_CONFIG} --variable=libdir nuv64)
    string(STRIP "${out}" libdir)
    run(${C} -std=c11 -Wall -Wextra -Werror ${SOURCE}/consumer/consumer.c -o ${WORK}/by_pc_c ${flags}
        -Wl,-rpath,${libdir})
    run(${CXX} -std=c++20 -Wall -Wextra -Werror ${SOURCE}/consumer/consumer.cpp -o ${WORK}/by_pc_cpp
        ${flags} -Wl,-rpath,${libdir})
    list(APPEND programs ${WORK}/by_pc_c ${WORK}/by_pc_cpp)
endif()

if(TOOLCHAIN)
    file(GLOB dll ${WORK}/prefix/bin/*.dll)
    file(COPY ${dll} DESTINATION ${WORK}/by_cmake)
    list(TRANSFORM programs APPEND .exe)
endif()
foreach(program IN LISTS programs)
    run(${EMULATOR} ${program})
    message(STATUS "${program}: ${out}")
endforeach()
