# Toolchain: Windows programs on Debian, by its MinGW-w64. ZLT_QT_DIR is Qt's folder for MinGW-w64;
# QT_HOST_PATH one of this machine's with moc, uic and the like, of the same Qt version.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)  # GoogleTest asks for one
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ZLT_QT_DIR)
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 ${ZLT_QT_DIR})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(Qt6_DIR ${ZLT_QT_DIR}/lib/cmake/Qt6)

if(NOT QT_HOST_PATH)
  set(QT_HOST_PATH /usr)
  set(QT_HOST_PATH_CMAKE_DIR /usr/lib/x86_64-linux-gnu/cmake)
endif()
