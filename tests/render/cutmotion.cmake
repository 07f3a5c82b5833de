# Writes the hierarchy of a motion file (MOTION) alone (REST).
file(READ "${MOTION}" text)
string(FIND "${text}" "MOTION" end)
if(end EQUAL -1)
    message(FATAL_ERROR "${MOTION} has no motion")
endif()
string(SUBSTRING "${text}" 0 ${end} text)
file(WRITE "${REST}" "${text}")
