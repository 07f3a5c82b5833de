# Installs BUILD into STAGE and moves it to INSTALLED: whatever remembers where it was installed breaks.
file(REMOVE_RECURSE "${STAGE}" "${INSTALLED}")
execute_process(
    COMMAND "${CMAKE_COMMAND}" --install "${BUILD}" --config "${CONFIG}" --prefix "${STAGE}"
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(RENAME "${STAGE}" "${INSTALLED}")

file(GLOB_RECURSE texts "${INSTALLED}/*.cmake" "${INSTALLED}/*.pc")
foreach(text IN LISTS texts)
    file(STRINGS "${text}" lines REGEX "${STAGE}|${BUILD}|/usr/include|/usr/[^\"; ]*[.](so|a)")
    if(lines)
        message(SEND_ERROR "${text} names a place of this machine: ${lines}")
    endif()
endforeach()
