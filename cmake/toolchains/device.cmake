# A device's processor, named by the `triplet` of its cross compiler. Libraries come from the build's own sysroot, which
# script/sysroot has made, and are linked statically: the device has no others of ours.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_C_COMPILER ${triplet}-gcc)
set(CMAKE_CXX_COMPILER ${triplet}-g++)
set(CMAKE_LIBRARY_ARCHITECTURE ${triplet})

set(ROUTER_SYSROOT "" CACHE PATH "headers and static libraries for the device")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ROUTER_SYSROOT)
set(CMAKE_FIND_ROOT_PATH ${ROUTER_SYSROOT})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_FIND_LIBRARY_SUFFIXES .a)
set(ENV{PKG_CONFIG_SYSROOT_DIR} ${ROUTER_SYSROOT})
set(ENV{PKG_CONFIG_LIBDIR} ${ROUTER_SYSROOT}/usr/lib/${triplet}/pkgconfig)

# Half-length instructions: a third less code. A processor without them is built for with -DROUTER_MIPS16=OFF.
option(ROUTER_MIPS16 "use the MIPS16e instructions" ON)
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ROUTER_MIPS16)
if(CMAKE_SYSTEM_PROCESSOR MATCHES "^mips" AND ROUTER_MIPS16)
    set(CMAKE_CXX_FLAGS_INIT -mips16)
endif()
# Such a device has pages of 4 KiB; for the 64 KiB that MIPS allows every program would be filled up with zeros.
if(CMAKE_SYSTEM_PROCESSOR MATCHES "^mips")
    set(CMAKE_EXE_LINKER_FLAGS_INIT -Wl,-z,max-page-size=4096)
endif()
