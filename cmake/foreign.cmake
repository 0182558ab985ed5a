# Builds for another processor with a Debian cross compiler and the libraries that scripts/foreign_libraries fetched;
# qemu runs the programs. A toolchain file sets CMAKE_SYSTEM_PROCESSOR (the name in the compiler's name) and
# ORVAN_DEBIAN_NAME (Debian's name for the processor) and then includes this file.

set(CMAKE_SYSTEM_NAME Linux)
set(triplet ${CMAKE_SYSTEM_PROCESSOR}-linux-gnu)
set(CMAKE_CXX_COMPILER ${triplet}-g++)

set(libraries ${CMAKE_CURRENT_LIST_DIR}/../build/foreign/${ORVAN_DEBIAN_NAME})
set(CMAKE_FIND_ROOT_PATH ${libraries})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# In this folder the linker finds the libraries that the fetched libraries need themselves.
set(CMAKE_EXE_LINKER_FLAGS_INIT -Wl,-rpath-link,${libraries}/usr/lib/${triplet})

set(CMAKE_CROSSCOMPILING_EMULATOR
    qemu-${CMAKE_SYSTEM_PROCESSOR} -L /usr/${triplet} -E LD_LIBRARY_PATH=${libraries}/usr/lib/${triplet})
