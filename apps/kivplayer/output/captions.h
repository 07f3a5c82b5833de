#pragma once

#include <osg/Camera>
#include <osg/ref_ptr>
#include <osgText/Text>

#include <string>

namespace KivPlayer {

/// One line of text at the lower edge of a picture, drawn over the scene. Changed between frames.
class Caption
{
public:
    /// @param width,height of the picture, pixels.
    /// @param font a font file; where it cannot be read there is no text.
    Caption(int width, int height, const std::string& font);

    osg::Node* node() const { return m_spCamera; }

    /// A text that is too wide is made smaller. Empty: none.
    void say(const std::string& text);

private:
    int m_width;
    osg::ref_ptr<osg::Camera> m_spCamera;
    osg::ref_ptr<osgText::Text> m_spText;
};

}  // namespace KivPlayer
