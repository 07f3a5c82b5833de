#pragma once

#include <osg/Quat>
#include <osg/Vec3d>
#include <osg/Vec3f>

#include <string>

#if defined(_WIN32)
#define KIV_INTERFACE_VISIBILITY
#else
#define KIV_INTERFACE_VISIBILITY __attribute__((visibility("default")))
#endif

/// A host's observer of props changes. The module never deletes an observer and calls it on whatever thread
/// the change is reported from. The slot order of the virtual operations is part of the interface.
///
/// For each change the observer is first asked whether it is concerned with the prop, and only then told;
/// what it is told does not repeat the name. An observer may unregister itself from inside a call;
/// unregistering another one during a delivery is not supported.
class KIV_INTERFACE_VISIBILITY IPropsPropertyModifyNotify
{
public:
    /// Both in the frame of the bone that carries the props.
    /// @param position     scene units divided by 100, so metres; values near zero are exactly 0.
    /// @param contactPoint scene units as they stand, so centimetres.
    virtual bool PropsVectorsChanged(const osg::Vec3f& position, const osg::Vec3f& contactPoint) = 0;
    virtual bool PropsValuesChanged(const osg::Quat& rotation, const osg::Vec3d& scale) = 0;
    /// @param flag true when a drag starts, false when it has ended.
    virtual bool PropsFlagChanged(bool flag) = 0;
    /// Whether this observer wants the changes of the named props.
    virtual bool IsPropsConcerned(const std::string& propsName) = 0;

    virtual ~IPropsPropertyModifyNotify() = default;
};
