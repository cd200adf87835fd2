# clang for the MinGW target, with the headers, run-time libraries and linker of the free toolchain. It is
# the second opinion on warnings, and what clang-tidy reads the sources with.
include("${CMAKE_CURRENT_LIST_DIR}/mingw-w64.cmake")

# Where the free toolchain's own compiler keeps its libraries; clang does not look there by itself.
execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=libgcc.a
                OUTPUT_VARIABLE _support OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
get_filename_component(_support "${_support}" DIRECTORY)
set(VELM_SUPPORT_FOLDER "${_support}")

find_program(VELM_CLANG NAMES clang++ clang++-19 clang++-16 clang++-14 REQUIRED)
find_program(VELM_CLANG_C NAMES clang clang-19 clang-16 clang-14 REQUIRED)
set(CMAKE_CXX_COMPILER "${VELM_CLANG}")
set(CMAKE_C_COMPILER "${VELM_CLANG_C}")
set(CMAKE_CXX_COMPILER_TARGET ${_triple})
set(CMAKE_C_COMPILER_TARGET ${_triple})
set(CMAKE_C_FLAGS_INIT "-nostdlibinc -isystem /usr/${_triple}/include")
set(CMAKE_CXX_FLAGS_INIT "-nostdlibinc -isystem ${_support}/include/c++ -isystem ${_support}/include/c++/${_triple} \
-isystem ${_support}/include/c++/backward -isystem /usr/${_triple}/include")
foreach(_kind IN ITEMS EXE SHARED MODULE)
  set(CMAKE_${_kind}_LINKER_FLAGS_INIT "-B${_support} -L${_support}")
endforeach()
