#include "host/KivReader/humanoid/posesample.h"

#include <algorithm>

namespace KivReader {

PoseSample samplePoses(const MotionDocument& document, const MotionFigure& figure, std::size_t atMost)
{
    PoseSample sample;
    const std::size_t stride = std::max<std::size_t>(1, (document.frames + atMost - 1) / atMost);
    for (std::size_t frame = 0; frame < document.frames; frame += stride) {
        sample.frames.push_back(frame);
        sample.poses.push_back(placed(figure, document.values.data() + frame * document.columns));
    }
    return sample;
}

}  // namespace KivReader
