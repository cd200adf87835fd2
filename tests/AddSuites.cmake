# Run by CTest: makes one CTest test of every suite of a test program. A process costs more than most
# tests, so they do not get one each.
#
# velm_add_suites(program list emulator working-folder properties...)
function(velm_add_suites program list emulator folder)
  if(NOT EXISTS "${program}")
    add_test("${program}_NOT_BUILT" "${program}")
    return()
  endif()
  if(NOT EXISTS "${list}" OR "${program}" IS_NEWER_THAN "${list}")
    execute_process(COMMAND ${emulator} "${program}" --gtest_list_tests WORKING_DIRECTORY "${folder}"
                    TIMEOUT 120 OUTPUT_VARIABLE output ERROR_VARIABLE errors RESULT_VARIABLE status)
    if(NOT status EQUAL 0)
      message(FATAL_ERROR "${program} does not list its tests (${status}):\n${output}\n${errors}")
    endif()
    # A suite stands at the beginning of a line and ends with a full stop, maybe with a remark behind it.
    string(REGEX MATCHALL "(^|\n)[A-Za-z0-9_/]+\\.(\r|\n| +#)" suites "${output}")
    list(TRANSFORM suites REPLACE "[\r\n]|\\.[^.]*$" "")
    list(JOIN suites "\n" lines)
    file(WRITE "${list}" "${lines}\n")
  endif()
  file(STRINGS "${list}" suites)
  get_filename_component(name "${program}" NAME_WE)
  foreach(suite IN LISTS suites)
    add_test("${name}.${suite}" ${emulator} "${program}" "--gtest_filter=${suite}.*")
    set_tests_properties("${name}.${suite}" PROPERTIES WORKING_DIRECTORY "${folder}" ${ARGN})
  endforeach()
endfunction()
