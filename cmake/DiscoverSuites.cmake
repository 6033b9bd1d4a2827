# Run as a script: writes to the file `entries` what makes every suite of the test program `program` an entry of ctest that
# has these `properties`. The ones that take long come first, so that none is left to run alone at the end: a test counts
# `weight`.
execute_process(COMMAND ${program} --gtest_list_tests OUTPUT_VARIABLE listed COMMAND_ERROR_IS_FATAL ANY)
# Parameters, which may be any text, stand in comments.
string(REGEX REPLACE "  # [^\n]*" "" listed "${listed}")
string(REGEX MATCHALL "\n[^ \n]+\\.(\n  [^\n]*)+" suites "${listed}")
set(text)
foreach(suite IN LISTS suites)
  string(REGEX MATCHALL "\n  " tests "${suite}")
  list(LENGTH tests count)
  math(EXPR cost "${count} * ${weight}")
  string(REGEX REPLACE "^\n([^ \n]+)\\.\n.*$" "\\1" name "${suite}")
  string(APPEND text "add_test([=[${name}]=] [=[${program}]=] [=[--gtest_filter=${name}.*]=])\n"
                     "set_tests_properties([=[${name}]=] PROPERTIES COST ${cost} ${properties})\n")
endforeach()
file(WRITE ${entries} "${text}")
