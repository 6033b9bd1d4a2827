# Headers that nearly every source of a target reads are compiled once, where ROOMLATTICE_PRECOMPILED_HEADERS is on.
# The sources do not count on it: other builds go without.
set(precompiled_standard_headers <algorithm> <chrono> <functional> <map> <memory> <optional> <string> <utility> <variant>
                                 <vector>)

# roomlattice_precompile(TARGET HEADER...)
function(roomlattice_precompile target)
  if(ROOMLATTICE_PRECOMPILED_HEADERS)
    target_precompile_headers(${target} PRIVATE ${precompiled_standard_headers} ${ARGN})
  endif()
endfunction()
