#pragma once

#include <osg/MatrixTransform>
#include <osg/Switch>
#include <osgText/Font>
#include <osgText/Text3D>

#include <string>

namespace KivCharacterization {

/// An actor's name above its head: switch, transform, billboard, text.
struct SNameLabel
{
    osg::ref_ptr<osg::Switch> labelSwitch;
    osg::ref_ptr<osg::MatrixTransform> transform;
    osg::ref_ptr<osgText::Text3D> text;
};

/// @param name UTF-8.
SNameLabel makeNameLabel(osgText::Font& font, const std::string& name);

/// Hangs a label beside the head, and makes it follow: the head is the first node under the skeleton, in
/// pre-order, whose name contains "Head"; without one it is the skeleton switch.
void attachNameLabel(const SNameLabel& label, osg::Node& skeleton, osg::Switch& skeletonSwitch);

}  // namespace KivCharacterization
