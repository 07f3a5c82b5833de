#pragma once

#include <osg/Camera>
#include <osg/ref_ptr>
#include <osgText/Text>

#include <string>

namespace KivPlayer {

/// Text at an edge of a picture, drawn over the scene. Changed between frames.
class Caption
{
public:
    enum class Edge
    {
        Lower,  ///< one line; made smaller where it is too wide
        Upper   ///< broken into lines
    };

    /// @param width,height of the picture, pixels.
    /// @param font a font file; where it cannot be read there is no text.
    Caption(int width, int height, const std::string& font, Edge edge = Edge::Lower);

    osg::Node* node() const { return m_spCamera; }

    /// Empty: none.
    void say(const std::string& text);

private:
    int m_width;
    Edge m_edge;
    osg::ref_ptr<osg::Camera> m_spCamera;
    osg::ref_ptr<osgText::Text> m_spText;
};

}  // namespace KivPlayer
