# Settings that every room shares, and the helpers with which rooms declare their targets.
include_guard(GLOBAL)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(CMAKE_SHARED_LIBRARY_PREFIX "")
set(CMAKE_SHARED_MODULE_PREFIX "")

find_program(VELM_CCACHE ccache)
if(VELM_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${VELM_CCACHE}")
endif()

add_compile_definitions(UNICODE _UNICODE WIN32 _WINDOWS)
add_library(velm_warnings INTERFACE)

if(MINGW)
  # DWARF 4 is what the debugger's stack walker reads; frame pointers keep its stacks whole.
  add_compile_options("$<$<COMPILE_LANGUAGE:CXX>:-gdwarf-4;-fno-omit-frame-pointer>")
  target_compile_options(velm_warnings INTERFACE "$<$<COMPILE_LANGUAGE:CXX>:-Wall;-Wextra>")
  if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    # MFC's classes hide their bases' Create by design, and so must those derived from them; its macros declare
    # overrides without the word.
    target_compile_options(velm_warnings INTERFACE
        "$<$<COMPILE_LANGUAGE:CXX>:-Wno-overloaded-virtual;-Wno-inconsistent-missing-override>")
  endif()
  # Text in .rc files is UTF-8.
  set(CMAKE_RC_FLAGS "${CMAKE_RC_FLAGS} -c 65001")
  set(CMAKE_CXX_STANDARD_LIBRARIES
      "-lcomctl32 -luser32 -lgdi32 -lole32 -loleaut32 -luuid -ladvapi32 -lkernel32")
  if(VELM_CHECKED)
    add_compile_options("$<$<COMPILE_LANGUAGE:CXX>:-fsanitize=undefined;-fsanitize-undefined-trap-on-error;-fstack-protector-strong>")
    add_compile_definitions(_GLIBCXX_ASSERTIONS)
    add_link_options(-fstack-protector-strong)
  endif()
else()
  target_compile_options(velm_warnings INTERFACE "$<$<COMPILE_LANGUAGE:CXX>:/W4;/permissive-;/utf-8>")
endif()

# Genuine MFC takes the place of the afx room: the target has the same name.
function(velm_use_platform_mfc)
  set(CMAKE_MFC_FLAG 2 PARENT_SCOPE)
  add_library(afx INTERFACE)
  target_compile_definitions(afx INTERFACE _AFXDLL)
  add_library(afxmain INTERFACE)
endfunction()

# The C++ run-time's DLLs, as full paths; none where the compiler brings its own way of handing them out.
function(velm_runtime_dlls result)
  set(paths "")
  if(MINGW)
    set(names libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
    if(VELM_CHECKED)
      list(APPEND names libssp-0.dll)
    endif()
    get_filename_component(triple_root "${CMAKE_FIND_ROOT_PATH}" ABSOLUTE)
    foreach(name IN LISTS names)
      execute_process(COMMAND "${CMAKE_CXX_COMPILER}" "-print-file-name=${name}"
                      OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE)
      if(NOT EXISTS "${path}" OR NOT IS_ABSOLUTE "${path}")
        unset(path)
        find_file(path "${name}" PATHS "${VELM_SUPPORT_FOLDER}" "${triple_root}/lib" NO_CACHE NO_DEFAULT_PATH
                  NO_CMAKE_FIND_ROOT_PATH)
      endif()
      if(NOT EXISTS "${path}")
        message(FATAL_ERROR "The C++ run-time ${name} was not found; install g++-mingw-w64-x86-64-posix.")
      endif()
      list(APPEND paths "${path}")
    endforeach()
  endif()
  set(${result} "${paths}" PARENT_SCOPE)
endfunction()

# They lie beside the programs: exceptions cross our modules, so the run-time is shared.
function(velm_deploy_runtime folder)
  velm_runtime_dlls(paths)
  if(paths)
    file(COPY ${paths} DESTINATION "${folder}")
  endif()
endfunction()
velm_deploy_runtime("${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")

# velm_extension_library(TARGET OUTPUT SOURCES...): an MFC extension DLL.
function(velm_extension_library target output)
  add_library(${target} SHARED ${ARGN})
  set_target_properties(${target} PROPERTIES OUTPUT_NAME "${output}" PREFIX "")
  target_compile_definitions(${target} PRIVATE _AFXEXT _USRDLL _WINDLL)
  target_link_libraries(${target} PUBLIC afx PRIVATE $<BUILD_INTERFACE:velm_warnings>)
endfunction()
