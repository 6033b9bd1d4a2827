# A toolchain that makes Roomlattice.app, for both architectures, on Linux. packaging/macos/compiler/install puts the
# compiler in its place; what the program uses of Apple's frameworks is declared in packaging/macos/sdk.
set(CMAKE_SYSTEM_NAME Darwin)
# The kernel of macOS 11.
set(CMAKE_SYSTEM_VERSION 20)
set(CMAKE_OSX_ARCHITECTURES "arm64;x86_64" CACHE STRING "")

cmake_path(GET CMAKE_CURRENT_LIST_DIR PARENT_PATH project)
set(CMAKE_OSX_SYSROOT ${project}/packaging/macos/sdk CACHE PATH "")
set(compiler ${project}/.cache/mac-compiler)
set(libraries ${compiler}/resources/lib)
string(
  JOIN " " flags
  -nostdinc++
  -isystem ${libraries}/libcxx/include
  -isystem ${libraries}/libcxxabi/include
  -isystem ${libraries}/libc/include/any-macos-any
  # What the C++ library's configuration header would say, which the package leaves out.
  -D_LIBCPP_ABI_VERSION=1
  -D_LIBCPP_ABI_NAMESPACE=__1
  -D_LIBCPP_PSTL_CPU_BACKEND_SERIAL)
foreach(language CXX OBJCXX)
  set(CMAKE_${language}_COMPILER ${compiler}/bin/clang++)
  set(CMAKE_${language}_FLAGS_INIT "${flags}")
endforeach()
# Signed by the linker, so that there is room for the signature of the whole application.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-fuse-ld=lld -L${libraries}/libc/darwin -Wl,-adhoc_codesign")
set(ROOMLATTICE_SIGN ${project}/packaging/macos/sign-ad-hoc CACHE STRING "")
# LLVM's archives hold no objects of several architectures.
set(ROOMLATTICE_WHOLE_PROGRAM ON CACHE BOOL "")

foreach(tool AR RANLIB NM STRIP INSTALL_NAME_TOOL)
  string(TOLOWER llvm-${tool} name)
  string(REPLACE _ - name ${name})
  find_program(CMAKE_${tool} NAMES ${name} ${name}-19 ${name}-16 ${name}-15 ${name}-14)
endforeach()
