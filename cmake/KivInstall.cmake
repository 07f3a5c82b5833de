# What is installed where, by component:
#   Runtime        the module and the host's libraries
#   Player         kivplayer and what a desktop needs to know of it
#   Data           avatar, label font, sample motions, the table of joint names
#   Development    headers, library links, CMake package, pkg-config files
#   Documentation  guides, licences
# Everything finds its neighbours by their place relative to itself, so the tree may be moved.
include(CMakePackageConfigHelpers)

option(KIV_INSTALL "Install the project's files" ${PROJECT_IS_TOP_LEVEL})

set(KIV_INSTALL_INCLUDEDIR "${CMAKE_INSTALL_INCLUDEDIR}/kivcharacterization")
set(KIV_INSTALL_DATADIR "${CMAKE_INSTALL_DATADIR}/kivcharacterization")  # runtimeroot.cpp looks there
set(KIV_INSTALL_CONFIGDIR "${CMAKE_INSTALL_LIBDIR}/cmake/KivCharacterization")

# kiv_install_library(<target>): a shared library that other programs may link.
function(kiv_install_library target)
    set_target_properties(${target} PROPERTIES INSTALL_RPATH "$ORIGIN")
    if(NOT KIV_INSTALL)
        return()
    endif()
    install(TARGETS ${target} EXPORT KivCharacterizationTargets
        RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT Runtime
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT Runtime NAMELINK_COMPONENT Development
        ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT Development)
endfunction()

# kiv_install_pkgconfig(<name>...): from cmake/<name>.pc.in; the prefix is told from where the file lies.
function(kiv_install_pkgconfig)
    set(folder "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
    file(RELATIVE_PATH KIV_PREFIX_FROM_PKGCONFIG "/p/${folder}" "/p")
    foreach(name IN LISTS ARGN)
        set(file "${CMAKE_CURRENT_BINARY_DIR}/${name}.pc")
        configure_file("${KivCharacterization_SOURCE_DIR}/cmake/${name}.pc.in" "${file}" @ONLY)
        install(FILES "${file}" DESTINATION "${folder}" COMPONENT Development)
    endforeach()
endfunction()

# kiv_install_package(): the package that find_package(KivCharacterization CONFIG) finds.
function(kiv_install_package)
    set(source "${KivCharacterization_SOURCE_DIR}/cmake")
    set(built "${CMAKE_CURRENT_BINARY_DIR}/package")
    configure_package_config_file("${source}/KivCharacterizationConfig.cmake.in"
        "${built}/KivCharacterizationConfig.cmake"
        INSTALL_DESTINATION "${KIV_INSTALL_CONFIGDIR}"
        PATH_VARS KIV_INSTALL_DATADIR)
    write_basic_package_version_file("${built}/KivCharacterizationConfigVersion.cmake"
        COMPATIBILITY SameMajorVersion)
    install(FILES "${built}/KivCharacterizationConfig.cmake" "${built}/KivCharacterizationConfigVersion.cmake"
            "${source}/KivOpenSceneGraph.cmake"
        DESTINATION "${KIV_INSTALL_CONFIGDIR}" COMPONENT Development)
    install(EXPORT KivCharacterizationTargets NAMESPACE KivCharacterization::
        DESTINATION "${KIV_INSTALL_CONFIGDIR}" COMPONENT Development)
endfunction()
