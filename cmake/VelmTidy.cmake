# The target `tidy` of the preset `clang`: clang-tidy, with the checks of .clang-tidy, over what is shipped.
if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  return()
endif()
find_program(VELM_RUN_CLANG_TIDY NAMES run-clang-tidy run-clang-tidy-19 run-clang-tidy-14)
if(VELM_RUN_CLANG_TIDY)
  add_custom_target(tidy
    COMMAND "${VELM_RUN_CLANG_TIDY}" -quiet -p "${CMAKE_BINARY_DIR}"
            "${PROJECT_SOURCE_DIR}/(afx|benchmarks|corvanutil|host|samples|velmmenu|velmutil)/.*[.]cpp"
    USES_TERMINAL VERBATIM)
endif()
