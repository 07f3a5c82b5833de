// makemotion OUTPUT_DIR: writes the sample motions.
#include <exception>
#include <iostream>

#include "tools/makemotion/samplemotions.h"

int main(int argc, char** argv)
{
    if (argc != 2 || argv[1][0] == '-') {
        std::cerr << "usage: makemotion OUTPUT_DIR\nWrites the sample motions (BVH) into the folder.\n";
        return 2;
    }
    try {
        KivMotion::writeSampleMotions(argv[1]);
    } catch (const std::exception& error) {
        std::cerr << "makemotion: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
