# The target "gallery": a contact sheet of every .bvh file of a folder.
set(KIV_GALLERY_FOLDER "${KIV_RUNTIME_ROOT}/Data/BVH" CACHE PATH
    "Folder whose motion files the target 'gallery' pictures")

add_custom_target(gallery
    COMMAND ${CMAKE_COMMAND}
        "-DPLAYER=$<TARGET_FILE:kivplayer>"
        "-DROOT=${KIV_RUNTIME_ROOT}"
        "-DFOLDER=${KIV_GALLERY_FOLDER}"
        "-DOUTPUT=${KivCharacterization_BINARY_DIR}/gallery"
        -P "${CMAKE_CURRENT_LIST_DIR}/makegallery.cmake"
    COMMENT "Picturing the motions of ${KIV_GALLERY_FOLDER}"
    VERBATIM)
add_dependencies(gallery kivplayer)
if(TARGET KivRoot)
    add_dependencies(gallery KivRoot)
endif()
