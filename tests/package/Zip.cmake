# Packs the build, compares what is in the archive with the list of what is meant to be, and unpacks it.
cmake_minimum_required(VERSION 3.25)
file(REMOVE_RECURSE "${WORK}/packed" "${WORK}/unpacked")
file(MAKE_DIRECTORY "${WORK}/packed" "${WORK}/unpacked")
execute_process(COMMAND "${CPACK}" -G ZIP -C Release -B "${WORK}/packed" --config "${BUILD}/CPackConfig.cmake"
                OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
set(top "VelmUtil22-${VERSION}-win64")
file(ARCHIVE_EXTRACT INPUT "${WORK}/packed/${top}.zip" DESTINATION "${WORK}/unpacked")
file(GLOB_RECURSE found RELATIVE "${WORK}/unpacked/${top}" "${WORK}/unpacked/${top}/*")

# The pages are those of the tree, whatever they are.
file(STRINGS "${SOURCE}/tests/package/contents.txt" expected)
file(GLOB_RECURSE pages RELATIVE "${SOURCE}/docs" "${SOURCE}/docs/*")
list(TRANSFORM pages PREPEND "share/doc/VelmUtil22/docs/")
list(APPEND expected ${pages})

set(new "${found}")
set(gone "${expected}")
list(REMOVE_ITEM new ${expected})
list(REMOVE_ITEM gone ${found})
list(JOIN new "\n  " new_lines)
list(JOIN gone "\n  " gone_lines)
if(new OR gone)
  message(FATAL_ERROR "The archive does not hold what tests/package/contents.txt says.\n"
                      "More:\n  ${new_lines}\nLess:\n  ${gone_lines}")
endif()
