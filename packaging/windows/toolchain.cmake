# Cross-compiles for 64-bit Windows with Debian's compiler; only its posix variant has the C++ threads.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(triplet x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${triplet}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triplet}-g++-posix)
set(CMAKE_RC_COMPILER ${triplet}-windres)

# DALVORA_WINDOWS_PREFIXES: the folders of the libraries built for Windows, a list.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES DALVORA_WINDOWS_PREFIXES)
set(CMAKE_FIND_ROOT_PATH /usr/${triplet} ${DALVORA_WINDOWS_PREFIXES})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# The libraries' own descriptions, and none of this machine's.
set(description_folders ${DALVORA_WINDOWS_PREFIXES})
list(TRANSFORM description_folders APPEND /lib/pkgconfig)
list(JOIN description_folders ":" description_folders)
set(ENV{PKG_CONFIG_LIBDIR} "${description_folders}:/usr/${triplet}/lib/pkgconfig")
