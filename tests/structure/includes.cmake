# cmake -DROOT=<folder> -P includes.cmake: reads what the sources below KivCharacterization, host, apps and include include,
# and fails on an arrow that runs up, into another wing, or into the inside of another library of the host.
cmake_minimum_required(VERSION 3.25)

# Rooms from the lowest to the highest; a room includes itself and what stands before it. The last component of a path that
# has no row of its own takes the row of its folder.
set(player_rooms
    apps/kivplayer/support apps/kivplayer/options apps/kivplayer/content apps/kivplayer/analysis apps/kivplayer/stage
    apps/kivplayer/session apps/kivplayer/report apps/kivplayer/output apps/kivplayer/window/platform
    apps/kivplayer/window/state apps/kivplayer/window/ui apps/kivplayer/window/inspection apps/kivplayer/window apps/kivplayer/headless
    apps/kivplayer)
set(reader_rooms
    host/KivReader/syntax host/KivReader/figure host/KivReader/humanoid host/KivReader)
set(module_inside KivCharacterization/Characterization)
set(module_rooms
    KivCharacterization/common
    ${module_inside}
    "${module_inside}/(characterbvh|actorscene|namelabel|osgreaders)"
    "${module_inside}/(actorcmdexchandlers|cameracmdexchandlers|propscmdexchandlers|modelloading)"
    "${module_inside}/bvhbuildhierarchyfromstringcmdexchandler"
    "${module_inside}/characterizationmanager")
# Plain data knows no other room; numbers are read with support's functions.
set(options_may_include apps/kivplayer/support apps/kivplayer/options)

# Sets <out> to the place of the path's room in the list, counted from 0; -1 where the path is in none.
function(room_of path rooms out)
    set(best -1)
    set(best_length 0)
    set(i 0)
    foreach(room IN LISTS ${rooms})
        if(path MATCHES "^${room}[/.]")
            string(LENGTH "${room}" length)
            if(length GREATER best_length)
                set(best ${i})
                set(best_length ${length})
            endif()
        endif()
        math(EXPR i "${i} + 1")
    endforeach()
    set(${out} ${best} PARENT_SCOPE)
endfunction()

# Sets <out> to why the file may not include that, or to nothing.
function(fault_of file included out)
    set(${out} "" PARENT_SCOPE)
    string(REGEX MATCH "^[^/]+" wing "${file}")
    if(NOT included MATCHES "^(apps|host|KivCharacterization)/" OR EXISTS "${ROOT}/include/${included}")
        return()
    endif()
    string(REGEX MATCH "^[^/]+" other_wing "${included}")
    if(NOT wing STREQUAL other_wing)
        set(${out} "runs into another wing" PARENT_SCOPE)
        return()
    endif()
    string(REGEX MATCH "^host/[^/]+" library "${file}")
    if(library AND NOT included MATCHES "^${library}/")
        set(${out} "runs into the inside of another library" PARENT_SCOPE)
        return()
    endif()
    foreach(rooms player_rooms reader_rooms module_rooms)
        room_of("${file}" ${rooms} from)
        room_of("${included}" ${rooms} to)
        if(to GREATER from AND from GREATER -1)
            set(${out} "runs up" PARENT_SCOPE)
        endif()
    endforeach()
    if(file MATCHES "^apps/kivplayer/options/")
        room_of("${included}" options_may_include to)
        if(to EQUAL -1)
            set(${out} "runs out of plain data" PARENT_SCOPE)
        endif()
    endif()
endfunction()

set(faults "")
file(GLOB_RECURSE files RELATIVE "${ROOT}"
    "${ROOT}/KivCharacterization/*.h" "${ROOT}/KivCharacterization/*.cpp" "${ROOT}/host/*.h" "${ROOT}/host/*.cpp"
    "${ROOT}/apps/*.h" "${ROOT}/apps/*.cpp" "${ROOT}/include/*.h")
foreach(file IN LISTS files)
    file(STRINGS "${ROOT}/${file}" lines REGEX "^[ \t]*#[ \t]*include[ \t]*[<\"](apps|host|KivCharacterization|\\.\\.?)/")
    foreach(line IN LISTS lines)
        string(REGEX REPLACE "^[^<\"]*[<\"]([^>\"]*)[>\"].*$" "\\1" included "${line}")
        if(included MATCHES "^\\.\\.?/")
            set(fault "is not a path from the root")
        else()
            fault_of("${file}" "${included}" fault)
        endif()
        if(fault)
            list(APPEND faults "${file}: ${included} ${fault}")
        endif()
    endforeach()
endforeach()

list(LENGTH files count)
if(count EQUAL 0)
    message(FATAL_ERROR "no sources below ${ROOT}")
endif()
list(SORT faults)
list(JOIN faults "\n" text)
if(OUTPUT)
    file(WRITE "${OUTPUT}" "${text}\n")
elseif(faults)
    message(FATAL_ERROR "includes against the order of the rooms (docs/architecture.md):\n${text}")
endif()
