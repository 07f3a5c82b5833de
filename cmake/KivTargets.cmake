# What every target of this project shares, set per target and never globally: language level, hidden
# symbols, warnings, sanitizers, where programs and libraries land.

find_program(KIV_CCACHE ccache)
# Headers take most of the time of a build, and sources that are compiled together read them once. They must be few, too:
# after a change to one of them all are compiled again.
set(KIV_SOURCES_AT_ONCE 6 CACHE STRING "How many sources of a target are compiled together; 1: each by itself")

function(kiv_configure_target target)
    target_compile_features(${target} PUBLIC cxx_std_17)
    set_target_properties(${target} PROPERTIES
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        POSITION_INDEPENDENT_CODE ON
        UNITY_BUILD ON
        UNITY_BUILD_BATCH_SIZE "${KIV_SOURCES_AT_ONCE}"
        RUNTIME_OUTPUT_DIRECTORY "${KivCharacterization_BINARY_DIR}/bin"
        LIBRARY_OUTPUT_DIRECTORY "${KivCharacterization_BINARY_DIR}/lib"
        ARCHIVE_OUTPUT_DIRECTORY "${KivCharacterization_BINARY_DIR}/lib")
    if(KIV_CCACHE)
        set_target_properties(${target} PROPERTIES CXX_COMPILER_LAUNCHER "${KIV_CCACHE}")
    endif()
    if(NOT MSVC)
        target_compile_options(${target} PRIVATE -Wall -Wextra -Wconversion
            $<$<CXX_COMPILER_ID:GNU>:-Wshadow=local>)
        if(KIV_SOURCES_AT_ONCE GREATER 1)
            # GCC takes sources that are compiled together for headers.
            target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
        endif()
        if(KIV_WARNINGS_AS_ERRORS)
            target_compile_options(${target} PRIVATE -Werror)
        endif()
    endif()
    if(KIV_SANITIZE)
        target_compile_options(${target} PRIVATE -fsanitize=${KIV_SANITIZE} -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=${KIV_SANITIZE})
    endif()
endfunction()

# kiv_link_osg(<target> <scope> [osgDB osgText ...]): the core always comes along.
function(kiv_link_osg target scope)
    set(parts ${ARGN})
    list(TRANSFORM parts PREPEND OpenSceneGraph::)
    target_link_libraries(${target} ${scope} ${parts} OpenSceneGraph::osg)
endfunction()
