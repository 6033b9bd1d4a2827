# The Objective-C++ compiler of the macOS backend: the system's on a Mac. Elsewhere the backend is only compiled and
# exercised, by clang on GNUstep, beside code of any other compiler; without that toolchain it is left out.
if(APPLE)
  enable_language(OBJCXX)
else()
  find_program(ROOMLATTICE_CLANGXX NAMES clang++-14 clang++)
  find_path(ROOMLATTICE_GNUSTEP_INCLUDE AppKit/NSTrackingArea.h PATH_SUFFIXES GNUstep)
  find_library(ROOMLATTICE_GNUSTEP_GUI gnustep-gui)
  find_library(ROOMLATTICE_GNUSTEP_BASE gnustep-base)
  file(GLOB ROOMLATTICE_LIBOBJC_FOLDERS /usr/lib/gcc/*/*/include/objc/objc.h)
  mark_as_advanced(ROOMLATTICE_CLANGXX ROOMLATTICE_GNUSTEP_INCLUDE ROOMLATTICE_GNUSTEP_GUI ROOMLATTICE_GNUSTEP_BASE)
  if(ROOMLATTICE_CLANGXX
     AND ROOMLATTICE_GNUSTEP_INCLUDE
     AND ROOMLATTICE_GNUSTEP_GUI
     AND ROOMLATTICE_GNUSTEP_BASE
     AND ROOMLATTICE_LIBOBJC_FOLDERS)
    set(CMAKE_OBJCXX_COMPILER ${ROOMLATTICE_CLANGXX})
    # What precompiled headers look like is kept for all languages together, and the last one enabled would decide: the
    # other compiler would not find its own.
    set(prologue "${CMAKE_PCH_PROLOGUE}")
    set(extension "${CMAKE_PCH_EXTENSION}")
    enable_language(OBJCXX)
    set(CMAKE_PCH_PROLOGUE "${prologue}")
    set(CMAKE_PCH_EXTENSION "${extension}")
    # CMake knows how to link shared libraries in this language on a Mac only.
    foreach(variable CMAKE_SHARED_LIBRARY_@_FLAGS CMAKE_@_COMPILE_OPTIONS_PIC CMAKE_SHARED_LIBRARY_SONAME_@_FLAG
                     CMAKE_SHARED_LIBRARY_RUNTIME_@_FLAG CMAKE_SHARED_LIBRARY_RUNTIME_@_FLAG_SEP
                     CMAKE_EXECUTABLE_RUNTIME_@_FLAG CMAKE_EXECUTABLE_RUNTIME_@_FLAG_SEP)
      string(REPLACE "@" "CXX" of_cxx ${variable})
      string(REPLACE "@" "OBJCXX" of_objcxx ${variable})
      set(${of_objcxx} "${${of_cxx}}")
    endforeach()
    list(POP_BACK ROOMLATTICE_LIBOBJC_FOLDERS objc_header)
    cmake_path(GET objc_header PARENT_PATH objc_folder)
    cmake_path(GET objc_folder PARENT_PATH ROOMLATTICE_LIBOBJC_INCLUDE)
    cmake_path(GET ROOMLATTICE_LIBOBJC_INCLUDE PARENT_PATH ROOMLATTICE_LIBOBJC_LIBRARIES)
  else()
    message(STATUS "The macOS backend is left out: clang, GNUstep and libobjc are not all installed")
    set(ROOMLATTICE_MACOS_ON_GNUSTEP OFF)
  endif()
endif()
if(ROOMLATTICE_CCACHE AND NOT DEFINED CMAKE_OBJCXX_COMPILER_LAUNCHER)
  set(CMAKE_OBJCXX_COMPILER_LAUNCHER ${ROOMLATTICE_CCACHE})
endif()
set(CMAKE_OBJCXX_STANDARD 20)
set(CMAKE_OBJCXX_STANDARD_REQUIRED ON)
set(CMAKE_OBJCXX_EXTENSIONS OFF)
