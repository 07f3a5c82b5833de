#include "tools/makemotion/samplemotions.h"

#include <fstream>
#include <stdexcept>

#include "tools/makemotion/bvhwriter.h"

namespace KivMotion {

const std::vector<SampleMotion>& sampleMotions()
{
    static const std::vector<SampleMotion> motions = {
        {"walk.bvh", makeWalk, false},          {"wave.bvh", makeWave, false},
        {"pass_left.bvh", makePassLeft, false}, {"pass_right.bvh", makePassRight, false},
        {"juggle.bvh", makeJuggle, true},
    };
    return motions;
}

void writeSampleMotions(const std::filesystem::path& folder)
{
    std::filesystem::create_directories(folder);
    for (const SampleMotion& motion : sampleMotions()) {
        const std::filesystem::path file = folder / motion.fileName;
        const Rig rig(motion.withProps);
        std::ofstream stream(file, std::ios::binary);
        writeBvh(stream, motion.make(rig));
        stream.close();
        if (!stream)
            throw std::runtime_error("cannot write " + file.string());
    }
}

}  // namespace KivMotion
