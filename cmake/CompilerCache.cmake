# Uses ccache where it is installed; nothing needs it.
find_program(ROOMLATTICE_CCACHE ccache)
mark_as_advanced(ROOMLATTICE_CCACHE)
if(ROOMLATTICE_CCACHE AND NOT DEFINED CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${ROOMLATTICE_CCACHE})
endif()
