# Cross build for a 32-bit ARM television with Debian's compiler (scripts/install-packages cross). An integrator copies
# this file and names the television's own compiler and root file system.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR arm)
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
# The compiler's notes about parameter passing before GCC 7 concern nobody who compiles everything with one compiler.
set(CMAKE_CXX_FLAGS_INIT -Wno-psabi)
# Debian's emulator of the processor runs the unit tests; a television's own machine may take its place.
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-arm -L /usr/arm-linux-gnueabihf)
