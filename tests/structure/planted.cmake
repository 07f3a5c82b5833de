# cmake -DHERE=<this folder> -DWORK=<folder> -P planted.cmake: the check of includes must find exactly the arrows that are
# planted, each for its reason, and nothing wrong with the good ones beside them.
cmake_minimum_required(VERSION 3.25)
execute_process(COMMAND "${CMAKE_COMMAND}" "-DROOT=${HERE}/planted" -P "${HERE}/includes.cmake"
    RESULT_VARIABLE code OUTPUT_QUIET ERROR_QUIET)
if(code EQUAL 0)
    message(FATAL_ERROR "the check passed over what is planted")
endif()
set(found_file "${WORK}/planted-faults.txt")
execute_process(COMMAND "${CMAKE_COMMAND}" "-DROOT=${HERE}/planted" "-DOUTPUT=${found_file}" -P "${HERE}/includes.cmake"
    RESULT_VARIABLE code)
file(READ "${found_file}" found)
file(READ "${HERE}/planted/faults.txt" expected)
if(NOT found STREQUAL expected)
    message(FATAL_ERROR "expected\n${expected}found\n${found}")
endif()
