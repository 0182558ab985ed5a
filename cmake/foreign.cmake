# A Debian cross compiler, the libraries that scripts/foreign_libraries laid down, and qemu to run what was built.
# Included by a toolchain file that has set CMAKE_SYSTEM_PROCESSOR (as in the compiler's name) and ORVAN_DEBIAN_NAME.

set(CMAKE_SYSTEM_NAME Linux)
set(triplet ${CMAKE_SYSTEM_PROCESSOR}-linux-gnu)
set(CMAKE_CXX_COMPILER ${triplet}-g++)

set(libraries ${CMAKE_CURRENT_LIST_DIR}/../build/foreign/${ORVAN_DEBIAN_NAME})
set(CMAKE_FIND_ROOT_PATH ${libraries})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# The linker looks here for what a library needs itself.
set(CMAKE_EXE_LINKER_FLAGS_INIT -Wl,-rpath-link,${libraries}/usr/lib/${triplet})

set(CMAKE_CROSSCOMPILING_EMULATOR
    qemu-${CMAKE_SYSTEM_PROCESSOR} -L /usr/${triplet} -E LD_LIBRARY_PATH=${libraries}/usr/lib/${triplet})
