# Runs the player (PLAYER, ROOT) on every motion of FOLDER, into OUTPUT. A script because the folder's content is
# known only when the gallery is made.
file(GLOB motions "${FOLDER}/*.bvh" "${FOLDER}/*.BVH")
list(REMOVE_DUPLICATES motions)
list(SORT motions)
if(NOT motions)
    message(FATAL_ERROR "There is no .bvh file in ${FOLDER}")
endif()
file(REMOVE_RECURSE "${OUTPUT}")
set(ENV{LIBGL_ALWAYS_SOFTWARE} 1)
execute_process(
    COMMAND "${PLAYER}" --root "${ROOT}" --contact-sheet "${OUTPUT}" -- ${motions}
    RESULT_VARIABLE answer)
# 1: a file could not be read. The player has named it and pictured the others.
if(NOT answer STREQUAL "0" AND NOT answer STREQUAL "1")
    message(FATAL_ERROR "The player ended with ${answer}")
endif()
if(NOT EXISTS "${OUTPUT}/contact-sheet.png")
    message(FATAL_ERROR "No motion of ${FOLDER} could be pictured")
endif()
message(STATUS "${OUTPUT}/contact-sheet.png")
