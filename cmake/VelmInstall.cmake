# What `cmake --install` and `cpack` hand out, and where it lies.
include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

# On Windows a DLL lies beside the programs, and everything is found relative to the package's own files, so
# the folder may be moved.
set(include_folder "${CMAKE_INSTALL_INCLUDEDIR}/VelmUtil22")
set(package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/VelmUtil22")
set(doc_folder "${CMAKE_INSTALL_DATADIR}/doc/VelmUtil22")
set(data_folder "${CMAKE_INSTALL_DATADIR}/VelmUtil22")

install(TARGETS velmutil corvanutil
        EXPORT VelmUtil22Targets
        RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}"
        ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}"
        INCLUDES DESTINATION "${include_folder}")
install(TARGETS velmhost velmmenu RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")

# The headers that VelmUtil22.h includes, and itself.
foreach(header IN ITEMS ${VELM_PUBLIC_HEADERS})
  get_filename_component(folder "${header}" DIRECTORY)
  install(FILES "velmutil/${header}" DESTINATION "${include_folder}/${folder}")
endforeach()
install(FILES velmutil/VelmUtil22.natvis DESTINATION "${include_folder}")

set(RUNTIME_NAMES "")
set(PC_AFX_CFLAGS "")
set(PC_AFX_LIBS "")
if(MINGW)
  # The subset of MFC, which takes the place of the genuine one.
  install(TARGETS afx afxmain
          EXPORT VelmUtil22Targets
          RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}"
          ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}"
          INCLUDES DESTINATION "${include_folder}/afx")
  file(GLOB afx_headers CONFIGURE_DEPENDS RELATIVE "${PROJECT_SOURCE_DIR}/afx" "${PROJECT_SOURCE_DIR}/afx/*.h"
       "${PROJECT_SOURCE_DIR}/afx/win/*.h")
  foreach(header IN LISTS afx_headers)
    get_filename_component(folder "${header}" DIRECTORY)
    install(FILES "afx/${header}" DESTINATION "${include_folder}/afx/${folder}")
  endforeach()
  velm_runtime_dlls(runtime)
  install(FILES ${runtime} DESTINATION "${CMAKE_INSTALL_BINDIR}")
  set(names VelmAfx22.dll)
  foreach(path IN LISTS runtime)
    get_filename_component(name "${path}" NAME)
    list(APPEND names "${name}")
  endforeach()
  list(JOIN names " " RUNTIME_NAMES)
  set(PC_AFX_CFLAGS "-I\${includedir}/afx -fno-strict-aliasing ")
  set(PC_AFX_LIBS "-lVelmAfx22 -lcomctl32 -luser32 -lgdi32 -lole32 -loleaut32 -luuid")
else()
  install(TARGETS afx afxmain EXPORT VelmUtil22Targets)
endif()

install(FILES README.md CHANGELOG.md DESTINATION "${doc_folder}")
install(DIRECTORY docs/ DESTINATION "${doc_folder}/docs")
install(FILES velmmenu/velmmenu.xsd DESTINATION "${data_folder}")

install(EXPORT VelmUtil22Targets NAMESPACE VelmUtil22:: DESTINATION "${package_folder}")
configure_package_config_file(cmake/VelmUtil22Config.cmake.in "${CMAKE_BINARY_DIR}/VelmUtil22Config.cmake"
                              INSTALL_DESTINATION "${package_folder}"
                              PATH_VARS CMAKE_INSTALL_BINDIR data_folder)
write_basic_package_version_file("${CMAKE_BINARY_DIR}/VelmUtil22ConfigVersion.cmake"
                                 COMPATIBILITY SameMajorVersion)
install(FILES "${CMAKE_BINARY_DIR}/VelmUtil22Config.cmake" "${CMAKE_BINARY_DIR}/VelmUtil22ConfigVersion.cmake"
        DESTINATION "${package_folder}")

configure_file(packaging/velmutil22.pc.in "${CMAKE_BINARY_DIR}/velmutil22.pc" @ONLY)
install(FILES "${CMAKE_BINARY_DIR}/velmutil22.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_NAME VelmUtil22)
set(CPACK_PACKAGE_VENDOR "The VelmUtil22 developers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_FILE_NAME "VelmUtil22-${PROJECT_VERSION}-win64")
set(CPACK_PACKAGE_CHECKSUM SHA256)
set(CPACK_STRIP_FILES ON)
include(CPack)
