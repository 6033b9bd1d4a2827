# Headers that nearly every source of a target reads are compiled once, where ROOMLATTICE_PRECOMPILED_HEADERS is ON. The
# sources do not count on it: scripts/check-includes sees that each has what it needs of the standard library.
# It pays for targets of many sources: where these are joined, three that read the same are about even.
set(precompiled_standard_headers <algorithm> <chrono> <functional> <map> <memory> <optional> <string> <utility> <variant>
                                 <vector>)

# roomlattice_precompile(TARGET [HEADER...] [LIKE OTHER]): the standard headers and those given, or what another target
# has that is compiled with the same options.
function(roomlattice_precompile target)
  cmake_parse_arguments(arg "" "LIKE" "" ${ARGN})
  if(NOT ROOMLATTICE_PRECOMPILED_HEADERS)
    return()
  endif()
  if(arg_LIKE)
    target_precompile_headers(${target} REUSE_FROM ${arg_LIKE})
  else()
    target_precompile_headers(${target} PRIVATE ${precompiled_standard_headers} ${arg_UNPARSED_ARGUMENTS})
  endif()
endfunction()
