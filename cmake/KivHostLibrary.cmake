# kiv_add_host_library(<name> SOURCES <files> [LINK <targets>] [OSG <OpenSceneGraph's parts>])
# One shared library of the reference host. A singleton lives in exactly one of them.
function(kiv_add_host_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK;OSG" ${ARGN})
    add_library(${name} SHARED ${ARG_SOURCES})
    add_library(KivCharacterization::${name} ALIAS ${name})
    kiv_configure_target(${name})
    target_link_libraries(${name} PUBLIC KivInterfaces ${ARG_LINK})
    target_include_directories(${name} PRIVATE "${KivCharacterization_SOURCE_DIR}")
    kiv_link_osg(${name} PUBLIC ${ARG_OSG})
    set_target_properties(${name} PROPERTIES
        VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
    kiv_install_library(${name})
endfunction()
