#include "KivCharacterization/Characterization/segmentfitting.h"

#include <osg/Quat>

#include <cmath>

#include "KivCharacterization/naming.h"

namespace KivCharacterization {

namespace {

constexpr float kZeroComponent = 0.001f;
constexpr double kMiddle = 0.5;

float zeroIfSmall(float component)
{
    return std::fabs(component) < kZeroComponent ? 0.0f : component;
}

float length(const osg::Vec3f& vector)
{
    return std::sqrt(vector * vector);
}

template <typename SegmentMap>
float hipWidth(SegmentMap& segments)
{
    const osg::Vec3f left = segments[kLeftHipSegment].offset;
    return length(left - segments[kRightHipSegment].offset);
}

}  // namespace

void alignToSegment(osg::Matrixd& matrix, const BvhSegment& skeleton, const IveSegment& avatar)
{
    const osg::Vec3f& offset = avatar.offset;
    const osg::Vec3f from(zeroIfSmall(offset.x()), zeroIfSmall(-offset.z()), zeroIfSmall(offset.y()));
    osg::Quat turn;
    turn.makeRotate(from, skeleton.offset);
    matrix = matrix * osg::Matrixd::rotate(turn);
}

void stretchToSegment(osg::Matrixd& matrix, const BvhSegment& skeleton, const IveSegment& avatar)
{
    const float ratio = skeleton.length / avatar.length;
    matrix.postMultScale(osg::Vec3d(ratio, ratio, ratio));
    matrix.postMultTranslate(osg::Vec3d(skeleton.offset) * kMiddle);
}

float hipRatio(BvhSegmentMap& skeleton, IveSegmentMap& avatar)
{
    const float skeletonWidth = hipWidth(skeleton);
    return skeletonWidth / hipWidth(avatar);
}

float handRatio(BvhSegmentMap& skeleton, IveSegmentMap& avatar)
{
    const float skeletonLength = length(skeleton[kHandSegment].offset);
    return skeletonLength / length(avatar[kHandSegment].offset);
}

}  // namespace KivCharacterization
