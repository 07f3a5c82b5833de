# Lays out the run-time root, the tree that is installed as it is:
#   Data/IVE/avatar.ive   made by makeavatar
#   Data/Font/arial.ttf   a copy of Liberation Sans, whose letters have the widths that the name promises
#   Data/BVH/*.bvh        made by makemotion

find_file(KIV_FONT LiberationSans-Regular.ttf
    PATHS /usr/share/fonts/truetype/liberation /usr/share/fonts/truetype/liberation2
          /usr/share/fonts/liberation-sans /usr/share/fonts/liberation
    NO_DEFAULT_PATH)
if(NOT KIV_FONT)
    message(FATAL_ERROR "The font Liberation Sans is missing: install fonts-liberation, "
                        "or set KIV_FONT to a TrueType font")
endif()

set(avatar "${KIV_RUNTIME_ROOT}/Data/IVE/avatar.ive")
add_custom_command(OUTPUT "${avatar}"
    COMMAND ${CMAKE_COMMAND} -E make_directory "${KIV_RUNTIME_ROOT}/Data/IVE"
    COMMAND makeavatar "${avatar}"
    DEPENDS makeavatar
    COMMENT "Making the avatar")

set(font "${KIV_RUNTIME_ROOT}/Data/Font/arial.ttf")
add_custom_command(OUTPUT "${font}"
    COMMAND ${CMAKE_COMMAND} -E make_directory "${KIV_RUNTIME_ROOT}/Data/Font"
    COMMAND ${CMAKE_COMMAND} -E copy "${KIV_FONT}" "${font}"
    DEPENDS "${KIV_FONT}"
    COMMENT "Putting the label font into place")

set(motions "")
foreach(name walk wave pass_left pass_right juggle)
    list(APPEND motions "${KIV_RUNTIME_ROOT}/Data/BVH/${name}.bvh")
endforeach()
add_custom_command(OUTPUT ${motions}
    COMMAND ${CMAKE_COMMAND} -E make_directory "${KIV_RUNTIME_ROOT}/Data/BVH"
    COMMAND makemotion "${KIV_RUNTIME_ROOT}/Data/BVH"
    DEPENDS makemotion
    COMMENT "Making the sample motions")

add_custom_target(KivRoot ALL DEPENDS "${avatar}" "${font}" ${motions})

if(KIV_INSTALL)
    install(DIRECTORY "${KIV_RUNTIME_ROOT}/Data" DESTINATION "${KIV_INSTALL_DATADIR}" COMPONENT Data)
endif()
