#pragma once

#include <osg/Matrixd>
#include <osg/Quat>
#include <osg/Vec3d>

#include <string>

namespace KivPlayer {

/// A prop as the panel shows it: in the frame of the bone that carries it, scene units.
struct PropState
{
    unsigned actor = 0;
    std::string fullName;  ///< with the actor's qualifier
    std::string name;
    osg::Vec3d position;
    osg::Vec3d contactPoint;
    osg::Quat rotation;
    osg::Vec3d scale{1, 1, 1};
    bool dragged = false;
    bool draggerShown = false;
    bool contactDraggerShown = false;
    unsigned long long changes = 0;  ///< that were reported since it was found
    unsigned long long drags = 0;    ///< that have ended

    osg::Matrixd matrix() const;
    osg::Vec3d angles() const;  ///< degrees about x, then y, then z
    void turnTo(const osg::Vec3d& degrees);
};

}  // namespace KivPlayer
