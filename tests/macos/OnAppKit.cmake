# The tests of the macOS backend on AppKit itself, for a user who is logged in.
include(Sources.cmake)

function(roomlattice_add_appkit_tests name)
  add_executable(${name} ${ARGN} ${macos_test_program})
  target_link_libraries(${name} PRIVATE roomlattice_macos GTest::gtest GTest::gmock)
  target_compile_options(${name} PRIVATE -fno-objc-arc)
  set_target_properties(${name} PROPERTIES ROOMLATTICE_IS_TEST ON)
  # They show windows and use the one clipboard: one after the other.
  gtest_discover_tests(${name} TEST_PREFIX macOS. DISCOVERY_MODE PRE_TEST PROPERTIES LABELS macos TIMEOUT 120
                                                                                      RUN_SERIAL ON)
endfunction()

roomlattice_add_appkit_tests(roomlattice_macos_tests ${macos_tests})
roomlattice_add_appkit_tests(roomlattice_conformance_macos MacBackend.mm)
target_link_libraries(roomlattice_conformance_macos PRIVATE roomlattice_conformance)
