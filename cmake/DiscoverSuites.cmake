# Run as a script: writes to the file `entries` what makes every suite of the test program `program` an entry of ctest that
# has these `properties`.
execute_process(COMMAND ${program} --gtest_list_tests OUTPUT_VARIABLE listed COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "\n[^ \n]+\\." suites "${listed}")
set(text)
foreach(suite IN LISTS suites)
  string(REGEX REPLACE "^\n|\\.$" "" suite ${suite})
  string(APPEND text "add_test([=[${suite}]=] [=[${program}]=] [=[--gtest_filter=${suite}.*]=])\n"
                     "set_tests_properties([=[${suite}]=] PROPERTIES ${properties})\n")
endforeach()
file(WRITE ${entries} "${text}")
