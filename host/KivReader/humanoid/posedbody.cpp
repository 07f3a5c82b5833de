#include "host/KivReader/humanoid/posedbody.h"

#include <algorithm>

namespace KivReader {

namespace {

constexpr double kBowed = 0.8;        ///< cosine: a trunk that leans more does not count as upright
constexpr double kHardlyEver = 0.02;  ///< of the poses' full weight: less than this tells nothing

}  // namespace

osg::Vec3d trunkOf(const Placements& pose, const JointMatching& matching)
{
    osg::Vec3d trunk =
        middle(pose, matching, "LeftArm", "RightArm") - middle(pose, matching, "LeftUpLeg", "RightUpLeg");
    trunk.normalize();
    return trunk;
}

osg::Vec3d acrossOf(const Placements& pose, const JointMatching& matching, const std::string& part)
{
    osg::Vec3d across = pose[matching.at("Left" + part)].place - pose[matching.at("Right" + part)].place;
    across.normalize();
    return across;
}

std::vector<double> uprightWeights(const PosedBody& body)
{
    std::vector<double> weights;
    double sum = 0.0;
    for (const Placements& pose : body.sample.poses) {
        const double upright = std::max(0.0, trunkOf(pose, body.motion.matching).z() - kBowed);
        weights.push_back(upright * upright);
        sum += weights.back();
    }
    const double full = (1.0 - kBowed) * (1.0 - kBowed) * static_cast<double>(weights.size());
    if (sum < kHardlyEver * full)
        std::fill(weights.begin(), weights.end(), 1.0);
    return weights;
}

void MeanTurn::add(const osg::Quat& turn, double weight)
{
    const osg::Vec4d& q = turn.asVec4();
    m_sum += q * (q * m_sum < 0.0 ? -weight : weight);
}

osg::Quat MeanTurn::value() const
{
    const double length = m_sum.length();
    return length > 0.0 ? osg::Quat(m_sum / length) : osg::Quat();
}

}  // namespace KivReader
