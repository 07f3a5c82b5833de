// The mesh of a dressed actor, to be measured where it is drawn.
#pragma once

#include <vector>

#include "apps/kivplayer/content/dressedactor.h"

class DressedBody
{
public:
    explicit DressedBody(const KivPlayer::DressedActor& actor);

    /// Of all points of the body as it is posed now, scene units.
    double lowest() const;
    double highest() const;
    bool isFinite() const;

private:
    struct Part
    {
        osg::ref_ptr<const KivAnimation::Bone> bone;
        std::vector<osg::Vec3d> points;  ///< in the bone's space
    };

    std::vector<double> heights() const;

    std::vector<Part> m_parts;
};
