# What every target of the project is compiled with.
add_library(roomlattice_options INTERFACE)
target_include_directories(roomlattice_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(
  roomlattice_options
  INTERFACE -Wall
            -Wextra
            -Wpedantic
            # Where several sources are one, Clang takes the names of each for hidden by those of another.
            $<$<NOT:$<AND:$<CXX_COMPILER_ID:Clang>,$<BOOL:$<TARGET_PROPERTY:UNITY_BUILD>>>>:-Wshadow>
            -Wconversion
            -Wsign-conversion
            -Wnon-virtual-dtor
            -Woverloaded-virtual
            -Wimplicit-fallthrough
            # Designated initialisers leave the other members at their defaults on purpose.
            -Wno-missing-field-initializers
            $<$<BOOL:${ROOMLATTICE_WARNINGS_AS_ERRORS}>:-Werror>)

if(ROOMLATTICE_SANITIZERS)
  # In the tests themselves undefined behaviour is not worth the time that looking for it takes the compiler.
  target_compile_options(
    roomlattice_options
    INTERFACE -fsanitize=address $<$<NOT:$<BOOL:$<TARGET_PROPERTY:ROOMLATTICE_IS_TEST>>>:-fsanitize=undefined>
              $<$<CXX_COMPILER_ID:Clang>:-fsanitize-ignorelist=${PROJECT_SOURCE_DIR}/cmake/undefined-ignorelist.txt>
              -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(roomlattice_options INTERFACE -fsanitize=address,undefined)
endif()

if(ROOMLATTICE_FUZZERS)
  # What the fuzzers read is watched, so that they learn what leads on.
  target_compile_options(roomlattice_options INTERFACE
                         $<$<NOT:$<BOOL:$<TARGET_PROPERTY:ROOMLATTICE_IS_TEST>>>:-fsanitize=fuzzer-no-link>)
endif()
