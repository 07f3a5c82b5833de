# OpenSceneGraph's parts as imported targets, OpenSceneGraph::osg and so on. CMake's own search for them answers with
# file names, which must not reach the installed package: they hold on this machine alone. So this file is installed
# too, and the package's targets name these.
set(KIV_OSG_COMPONENTS osgDB osgUtil osgText osgGA osgViewer osgAnimation osgManipulator)

# After find_package(OpenSceneGraph COMPONENTS ${KIV_OSG_COMPONENTS}). Its headers count as system headers: their
# warnings are not ours to mend.
function(kiv_import_osg)
    if(TARGET OpenSceneGraph::osg)
        return()
    endif()
    foreach(component IN ITEMS osg OpenThreads LISTS KIV_OSG_COMPONENTS)
        string(TOUPPER "${component}_LIBRARY" file)
        add_library(OpenSceneGraph::${component} UNKNOWN IMPORTED GLOBAL)
        set_target_properties(OpenSceneGraph::${component} PROPERTIES
            IMPORTED_LOCATION "${${file}}"
            INTERFACE_INCLUDE_DIRECTORIES "${OPENSCENEGRAPH_INCLUDE_DIRS}")
        if(NOT component MATCHES "^(osg|OpenThreads)$")
            target_link_libraries(OpenSceneGraph::${component} INTERFACE OpenSceneGraph::osg)
        endif()
    endforeach()
    target_link_libraries(OpenSceneGraph::osg INTERFACE OpenSceneGraph::OpenThreads)
endfunction()
