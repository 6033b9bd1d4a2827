# roomlattice_analyze(TARGET): with ROOMLATTICE_ANALYZER on, clang's static analyzer reads each Objective-C++ source of
# the target as part of the build, which ends with what it finds. It knows the rules for references that are counted by
# hand. Each source stands alone, so one that only compiles behind another one is found too; only the standard library
# is precompiled, which takes most of the time.
function(roomlattice_analyze target)
  if(NOT ROOMLATTICE_ANALYZER)
    return()
  endif()
  separate_arguments(flags UNIX_COMMAND "${CMAKE_OBJCXX_FLAGS}")
  list(GET CMAKE_OSX_ARCHITECTURES 0 architecture)
  set(compile
      ${CMAKE_OBJCXX_COMPILER}
      ${flags}
      -arch ${architecture}
      -isysroot ${CMAKE_OSX_SYSROOT}
      -mmacosx-version-min=${CMAKE_OSX_DEPLOYMENT_TARGET}
      -std=c++${CMAKE_OBJCXX_STANDARD}
      -fno-objc-arc
      -I${PROJECT_SOURCE_DIR}
      "$<TARGET_PROPERTY:roomlattice_options,INTERFACE_COMPILE_OPTIONS>")
  set(analyze
      --analyze
      -Xclang -analyzer-werror
      -Xclang -analyzer-output=text
      -Xclang -analyzer-checker=core,cplusplus,deadcode,nullability,osx,unix,optin.osx,optin.cplusplus)

  set(standard ${CMAKE_CURRENT_BINARY_DIR}/standard_headers)
  list(TRANSFORM precompiled_standard_headers PREPEND "#include " OUTPUT_VARIABLE includes)
  list(JOIN includes "\n" includes)
  file(GENERATE OUTPUT ${standard}.h CONTENT "${includes}\n")
  add_custom_command(
    OUTPUT ${standard}.pch
    COMMAND ${compile} -x objective-c++-header ${standard}.h -o ${standard}.pch
    DEPENDS ${standard}.h
    COMMAND_EXPAND_LISTS VERBATIM)

  get_target_property(sources ${target} SOURCES)
  list(FILTER sources INCLUDE REGEX "\\.mm$")
  list(TRANSFORM sources PREPEND ${CMAKE_CURRENT_BINARY_DIR}/ OUTPUT_VARIABLE stamps)
  list(TRANSFORM stamps APPEND .analyzed)
  foreach(source stamp IN ZIP_LISTS sources stamps)
    add_custom_command(
      OUTPUT ${stamp}
      COMMAND ${compile} ${analyze} -include-pch ${standard}.pch -MD -MF ${stamp}.d -MT ${stamp}
              ${CMAKE_CURRENT_SOURCE_DIR}/${source}
      COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
      DEPENDS ${source} ${standard}.pch
      DEPFILE ${stamp}.d
      COMMENT "Analyzing ${source}"
      COMMAND_EXPAND_LISTS VERBATIM)
  endforeach()
  add_custom_target(${target}_analyzed ALL DEPENDS ${stamps})
endfunction()
