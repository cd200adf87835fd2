# Writes OUTPUT as a copy of TEXT with a zero byte behind it (END is a file of that one byte): the mark at
# which readers of text resources stop.
execute_process(COMMAND "${CMAKE_COMMAND}" -E cat "${TEXT}" "${END}"
                OUTPUT_FILE "${OUTPUT}" RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "${OUTPUT} could not be written from ${TEXT}.")
endif()
