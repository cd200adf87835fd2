# An overlay port: vcpkg install velmutil22 --overlay-ports=packaging/vcpkg
# It builds the tree that it lies in.
vcpkg_check_linkage(ONLY_DYNAMIC_LIBRARY)
get_filename_component(SOURCE_PATH "${CMAKE_CURRENT_LIST_DIR}/../../.." ABSOLUTE)

vcpkg_cmake_configure(SOURCE_PATH "${SOURCE_PATH}" OPTIONS -DVELM_TESTS=OFF -DVELM_BENCH=OFF)
vcpkg_cmake_install()
vcpkg_cmake_config_fixup(PACKAGE_NAME VelmUtil22 CONFIG_PATH lib/cmake/VelmUtil22)
vcpkg_copy_pdbs()
vcpkg_copy_tools(TOOL_NAMES velmhost velmmenu AUTO_CLEAN)
vcpkg_fixup_pkgconfig()
file(REMOVE_RECURSE "${CURRENT_PACKAGES_DIR}/debug/include" "${CURRENT_PACKAGES_DIR}/debug/share")
file(INSTALL "${SOURCE_PATH}/packaging/vcpkg/velmutil22/usage" DESTINATION "${CURRENT_PACKAGES_DIR}/share/${PORT}")
