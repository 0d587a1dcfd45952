set(triplet mips-linux-gnu)
set(CMAKE_SYSTEM_PROCESSOR mips)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-mips-static)
include(${CMAKE_CURRENT_LIST_DIR}/device.cmake)
