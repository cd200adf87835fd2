# Builds the project of a user against a package, and runs its add-in in the package's host and its program.
cmake_minimum_required(VERSION 3.25)
set(source "${WORK}/consumer-${NAME}-source")
set(build "${WORK}/consumer-${NAME}")
file(REMOVE_RECURSE "${source}" "${build}")
file(COPY "${SOURCE}/tests/consumer/" DESTINATION "${source}")
file(COPY "${SOURCE}/samples/SampleAddin/Bmps" DESTINATION "${build}")
execute_process(COMMAND "${CMAKE_COMMAND}" -S "${source}" -B "${build}" -G Ninja -DCMAKE_BUILD_TYPE=Release
                        "-DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN}" "-DVelmUtil22_DIR=${PACKAGE}/lib/cmake/VelmUtil22"
                OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND "${CMAKE_COMMAND}" --build "${build}" OUTPUT_VARIABLE output ERROR_VARIABLE output
                RESULT_VARIABLE status)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "The consumer does not build:\n${output}")
endif()

function(expect_output expected)
  execute_process(COMMAND "${WINE_RUN}" ${ARGN} WORKING_DIRECTORY "${build}" OUTPUT_VARIABLE output
                  ERROR_VARIABLE errors RESULT_VARIABLE status)
  string(REPLACE "\r" "" output "${output}")
  string(FIND "${output}" "${expected}" position)
  if(NOT status EQUAL 0 OR position EQUAL -1)
    message(FATAL_ERROR "${ARGN}\nended with ${status} and wrote\n${output}${errors}instead of\n${expected}")
  endif()
endfunction()

expect_output("^C^CLINE " "${PACKAGE}/bin/velmhost.exe" --batch --history --press-item "My tools|Draw|Line"
              "${build}/MyAddin.arx")
expect_output("^C^CPARTS " "${PACKAGE}/bin/velmhost.exe" --batch --history --press-item "My tools|Parts..."
              "${build}/MyAddin.arx" "${build}/Witness.arx")
file(READ "${build}/witness.txt" shown)
# Colours are written as numbers: blue, green, red.
string(CONCAT expected "Bolt a00000 on fff0e6\n" "ready 006e00 on e6ffe6\n"
                       "Nut a00000 on fff0e6\n" "missing 0000a0 on ebebff\n")
if(NOT shown STREQUAL expected)
  message(FATAL_ERROR "The add-in's dialog showed\n${shown}instead of\n${expected}")
endif()
expect_output("${VERSION}" "${PACKAGE}/bin/velmhost.exe" --version)
expect_output("${VERSION}" "${PACKAGE}/bin/velmmenu.exe" --version)

# Its status is MFC's for a program that ends with its dialog: the last message's parameter.
execute_process(COMMAND "${WINE_RUN}" "${build}/MyDialog.exe" /check report.txt WORKING_DIRECTORY "${build}")
file(READ "${build}/report.txt" report)
if(NOT report STREQUAL "1 x 2: Bolt, ready, 1\n")
  message(FATAL_ERROR "The dialog's list held: ${report}")
endif()
