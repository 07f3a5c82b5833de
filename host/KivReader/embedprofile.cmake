# Writes a text file as a C++ string literal, in pieces that every compiler takes.
# cmake -DINPUT=<file> -DOUTPUT=<file> -P embedprofile.cmake
file(READ "${INPUT}" text)
string(REPLACE "\n" ")profile\"\n    \"\\n\" R\"profile(" text "${text}")
file(WRITE "${OUTPUT}" "    R\"profile(${text})profile\"\n")
