# kiv_add_test(<name> SOURCES <files> [LINK <targets>] [LABELS <labels>] [TIMEOUT <seconds>]
#              [ENVIRONMENT <variables>])
# One GoogleTest program; every test in it becomes a ctest test of its own. Programs run in the build's run-time root
# and find the motion library through KIV_MOTION_LIBRARY.
find_package(GTest REQUIRED)
include(GoogleTest)

function(kiv_add_test name)
    cmake_parse_arguments(ARG "" "TIMEOUT" "SOURCES;LINK;LABELS;ENVIRONMENT" ${ARGN})
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 120)
    endif()
    add_executable(${name} ${ARG_SOURCES})
    kiv_configure_target(${name})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${KivCharacterization_BINARY_DIR}/tests/bin")
    if(NOT MSVC)
        target_compile_options(${name} PRIVATE -O1)  # compiled far more often than a test runs long
    endif()
    target_include_directories(${name} PRIVATE "${KivCharacterization_SOURCE_DIR}")
    target_link_libraries(${name} PRIVATE ${ARG_LINK} KivBuiltPaths GTest::gmock GTest::gtest_main)
    # A test that was built by itself finds what it runs on.
    if(TARGET KivRoot)
        add_dependencies(${name} KivRoot)
    endif()
    set(properties TIMEOUT ${ARG_TIMEOUT})
    if(ARG_LABELS)
        list(APPEND properties LABELS "${ARG_LABELS}")
    endif()
    if(ARG_ENVIRONMENT)
        list(APPEND properties ENVIRONMENT "${ARG_ENVIRONMENT}")
    endif()
    gtest_discover_tests(${name}
        TEST_PREFIX "${name}."
        DISCOVERY_MODE PRE_TEST
        PROPERTIES ${properties})
endfunction()
