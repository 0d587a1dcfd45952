set(triplet mipsel-linux-gnu)
set(CMAKE_SYSTEM_PROCESSOR mipsel)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-mipsel-static)
include(${CMAKE_CURRENT_LIST_DIR}/device.cmake)
