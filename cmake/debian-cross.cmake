# Cross builds with Debian's compilers (scripts/install-packages cross) for the triple AVCONTROL_TRIPLE, for example
# arm-linux-gnueabihf. An integrator copies this file and sets the television's own compiler and root file system.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES AVCONTROL_TRIPLE)
string(REGEX MATCH "^[a-z0-9]+" processor "${AVCONTROL_TRIPLE}")
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR ${processor})
set(CMAKE_CXX_COMPILER ${AVCONTROL_TRIPLE}-g++)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
if(processor STREQUAL arm)
  # The compiler's notes about parameter passing before GCC 7 are irrelevant when one compiler builds everything.
  set(CMAKE_CXX_FLAGS_INIT -Wno-psabi)
endif()
# Debian's emulator of the processor runs the unit tests. A command that runs them on a television may replace it.
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-${processor} -L /usr/${AVCONTROL_TRIPLE})
