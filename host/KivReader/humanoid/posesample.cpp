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

void leaveOut(PoseSample& sample, const std::vector<std::size_t>& frames)
{
    const auto isLeftOut = [&](std::size_t frame) {
        return std::binary_search(frames.begin(), frames.end(), frame);
    };
    if (std::all_of(sample.frames.begin(), sample.frames.end(), isLeftOut))
        return;
    PoseSample kept;
    for (std::size_t i = 0; i < sample.frames.size(); ++i) {
        if (isLeftOut(sample.frames[i]))
            continue;
        kept.frames.push_back(sample.frames[i]);
        kept.poses.push_back(std::move(sample.poses[i]));
    }
    sample = std::move(kept);
}

PoseSample inFrame(PoseSample sample, const FileFrame& frame)
{
    const auto turned = [&](const osg::Vec3d& v) { return inScene({v.x(), v.z(), -v.y()}, frame.up); };
    for (Placements& pose : sample.poses) {
        for (Placement& joint : pose) {
            joint.place = turned(joint.place) * frame.unit;
            const osg::Vec3d axis = turned(joint.turn.asVec3());
            joint.turn.set(axis.x(), axis.y(), axis.z(), joint.turn.w());
        }
    }
    return sample;
}

}  // namespace KivReader
