# Passes when CHECKER fails on TREE with exactly the faults that the file EXPECTED holds.
execute_process(COMMAND ${CHECKER} ${TREE} OUTPUT_VARIABLE told RESULT_VARIABLE code)
file(READ ${EXPECTED} expected)
if(NOT code EQUAL 1 OR NOT told STREQUAL expected)
  message(FATAL_ERROR "exit code ${code}, told:\n${told}expected:\n${expected}")
endif()
