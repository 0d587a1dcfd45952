# What every target of ours is compiled with. Tests keep exceptions: GoogleTest needs them.
find_package(PkgConfig REQUIRED)

add_library(router_options INTERFACE)
target_include_directories(router_options INTERFACE ${CMAKE_SOURCE_DIR}/src)
target_compile_options(router_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
if(ROUTER_WERROR)
    target_compile_options(router_options INTERFACE -Werror)
endif()
target_compile_definitions(router_options INTERFACE _GNU_SOURCE)
if(CMAKE_SIZEOF_VOID_P EQUAL 4)  # it counts past 2038 and reads every file
    target_compile_definitions(router_options INTERFACE _TIME_BITS=64 _FILE_OFFSET_BITS=64)
endif()

add_library(router_program_options INTERFACE)
target_link_libraries(router_program_options INTERFACE router_options)
target_compile_options(router_program_options INTERFACE -fno-exceptions -fno-rtti)

if(ROUTER_SANITIZE)
    target_compile_options(router_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
    target_link_options(router_options INTERFACE -fsanitize=address,undefined)
endif()

# What a target reaches is counted in all of our code; its main program comes when it is linked.
if(ROUTER_FUZZ)
    target_compile_options(router_options INTERFACE -fsanitize=fuzzer-no-link)
    target_link_options(router_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

set(pie_compile -fPIE)
set(pie_link -pie)
if(ROUTER_STATIC)
    set(CMAKE_FIND_LIBRARY_SUFFIXES .a)
    # Not every C library can start a static program at any address: MIPS has none that does.
    include(CheckLinkerFlag)
    check_linker_flag(CXX -static-pie ROUTER_HAS_STATIC_PIE)
    set(pie_link -static-pie)
    if(NOT ROUTER_HAS_STATIC_PIE)
        set(pie_compile -fno-pie)
        set(pie_link -static -no-pie)
    endif()
    target_compile_options(router_options INTERFACE ${pie_compile})
    target_link_options(router_options INTERFACE ${pie_link})
endif()

if(ROUTER_HARDEN)
    target_compile_options(router_options INTERFACE
        ${pie_compile} -fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -D_GLIBCXX_ASSERTIONS
        -ffunction-sections -fdata-sections)
    target_link_options(router_options INTERFACE
        ${pie_link} -Wl,-z,relro,-z,now,-z,noexecstack -Wl,--gc-sections,--as-needed)
endif()

# A floor of the console or of the service: a static library named after its folder.
function(router_library name)
    add_library(${name} STATIC ${ARGN})
    target_link_libraries(${name} PUBLIC router_program_options)
endfunction()

# tests/<folder>/ becomes <folder>_tests; every case is a ctest entry of its own.
function(router_tests folder)
    cmake_parse_arguments(arg "" "" "SOURCES;LIBRARIES;PROPERTIES" ${ARGN})
    add_executable(${folder}_tests ${arg_SOURCES})
    target_include_directories(${folder}_tests PRIVATE ${CMAKE_SOURCE_DIR}/tests)
    target_link_libraries(${folder}_tests PRIVATE ${arg_LIBRARIES} router_options GTest::gtest GTest::gtest_main)
    gtest_discover_tests(${folder}_tests TEST_PREFIX "${folder}." DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 120 ${arg_PROPERTIES})
endfunction()
