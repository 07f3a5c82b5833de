# Takes the library search paths out of what is installed below ROOT.
file(GLOB files "${ROOT}/usr/bin/*" "${ROOT}/usr/lib/*/lib*.so.*")
foreach(file IN LISTS files)
    if(NOT IS_SYMLINK "${file}")
        file(RPATH_REMOVE FILE "${file}")
    endif()
endforeach()
