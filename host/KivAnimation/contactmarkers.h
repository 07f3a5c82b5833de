#pragma once

#include <osg/Group>
#include <osg/Vec4f>
#include <osg/observer_ptr>

#include <map>
#include <string>

#include "KivAnimation/bone.h"

namespace KivAnimation {

/// The contact markers of one skeleton and their colours, by unqualified joint name.
class ContactMarkers
{
public:
    /// Paints the bone's marker. The marker is a small sphere, seen faintly through what hides it; it is the
    /// bone's last child, made at the first call.
    void paint(const std::string& jointName, Bone& bone, const osg::Vec4f& color);

    /// @return null if the joint was never painted.
    const osg::Vec4f* color(const std::string& jointName) const;

private:
    struct Marker
    {
        osg::Vec4f color;
        osg::observer_ptr<osg::Group> node;
    };

    std::map<std::string, Marker> m_markers;
};

}  // namespace KivAnimation
