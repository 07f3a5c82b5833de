# kiv_add_test(<name> SOURCES <files> [LINK <targets>] [LABELS <labels>] [TIMEOUT <seconds>])
# One GoogleTest program; every test in it becomes a ctest test of its own. Programs run in the build's run-time root
# and find the motion library through KIV_MOTION_LIBRARY.
find_package(GTest REQUIRED)
include(GoogleTest)

# What a sanitized test program runs with: the first finding ends it, and only what the lists in tests/sanitizers name
# is passed over. For the ENVIRONMENT of tests that are not made by kiv_add_test, too.
set(KIV_SANITIZER_ENVIRONMENT "")
if(KIV_SANITIZE)
    set(lists "${KivCharacterization_SOURCE_DIR}/tests/sanitizers")
    set(KIV_SANITIZER_ENVIRONMENT
        "ASAN_OPTIONS=detect_stack_use_after_return=1:strict_string_checks=1:check_initialization_order=1"
        "LSAN_OPTIONS=suppressions=${lists}/leaks.supp:print_suppressions=0"
        "UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1"
        "TSAN_OPTIONS=suppressions=${lists}/races.supp:halt_on_error=1:print_suppressions=0")
endif()

function(kiv_add_test name)
    cmake_parse_arguments(ARG "" "TIMEOUT" "SOURCES;LINK;LABELS" ${ARGN})
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 120)
    endif()
    add_executable(${name} ${ARG_SOURCES})
    kiv_configure_target(${name})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${KivCharacterization_BINARY_DIR}/tests/bin")
    target_include_directories(${name} PRIVATE "${KivCharacterization_SOURCE_DIR}")
    target_compile_definitions(${name} PRIVATE
        KIV_SOURCE_DIR="${KivCharacterization_SOURCE_DIR}"
        KIV_RUNTIME_ROOT="${KIV_RUNTIME_ROOT}")
    target_link_libraries(${name} PRIVATE ${ARG_LINK} GTest::gmock GTest::gtest_main)
    # A test that was built by itself finds what it runs on.
    if(TARGET KivRoot)
        add_dependencies(${name} KivRoot)
    endif()
    set(properties TIMEOUT ${ARG_TIMEOUT})
    if(ARG_LABELS)
        list(APPEND properties LABELS "${ARG_LABELS}")
    endif()
    if(KIV_SANITIZER_ENVIRONMENT)
        list(JOIN KIV_SANITIZER_ENVIRONMENT "\\;" environment)
        list(APPEND properties ENVIRONMENT "${environment}")
    endif()
    gtest_discover_tests(${name}
        TEST_PREFIX "${name}."
        DISCOVERY_MODE PRE_TEST
        PROPERTIES ${properties})
endfunction()
