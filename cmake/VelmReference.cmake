# The target `reference`: the public headers as pages, in build/.../reference/html. Whatever is exported and not
# said a word about, or said wrongly, ends it.
find_package(Doxygen QUIET)
find_package(Python3 QUIET COMPONENTS Interpreter)
if(NOT DOXYGEN_FOUND OR NOT Python3_FOUND)
  return()
endif()
list(TRANSFORM VELM_PUBLIC_HEADERS PREPEND "\"${PROJECT_SOURCE_DIR}/velmutil/" OUTPUT_VARIABLE DOXYGEN_INPUT)
list(TRANSFORM DOXYGEN_INPUT APPEND "\"")
list(JOIN DOXYGEN_INPUT " " DOXYGEN_INPUT)
set(DOXYGEN_PYTHON "${Python3_EXECUTABLE}")
configure_file("${PROJECT_SOURCE_DIR}/cmake/Doxyfile.in" "${CMAKE_BINARY_DIR}/Doxyfile" @ONLY)
add_custom_target(reference COMMAND Doxygen::doxygen "${CMAKE_BINARY_DIR}/Doxyfile"
                  COMMENT "Writing the reference" VERBATIM)
