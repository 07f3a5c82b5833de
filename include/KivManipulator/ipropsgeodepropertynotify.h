#pragma once

#include <osg/Quat>
#include <osg/Vec3d>
#include <osg/Vec3f>

#include <string>

#include "KivCommonDef/sharedlibrary.h"

namespace KivManipulator {

/// Receives what a user does to a props. The slot order of the virtual operations is part of the interface.
/// Each default accepts the news and answers true.
class KIV_MANIPULATOR_API IPropsGeodePropertyNotify
{
public:
    /// @param position     of the props, @param contactPoint of its contact point: scene units, in the frame
    /// of the bone that carries the props.
    virtual bool PropsVectorsChanged(std::string propsName, const osg::Vec3f& position,
                                     const osg::Vec3f& contactPoint);
    virtual bool PropsValuesChanged(std::string propsName, const osg::Quat& rotation,
                                    const osg::Vec3d& scale);
    /// @param flag true when a drag starts, false when it has ended.
    virtual bool PropsFlagChanged(std::string propsName, bool flag);

    virtual ~IPropsGeodePropertyNotify();
};

}  // namespace KivManipulator
