#pragma once

#include <osg/Image>
#include <osg/ref_ptr>
#include <osgViewer/View>

#include <memory>
#include <string>
#include <vector>

#include "apps/kivplayer/window/state/viewarea.h"

namespace KivPlayer {

/// Dear ImGui on top of a view: takes the events that it wants before the scene sees them, and draws after
/// the scene. One at a time; everything on the thread that draws.
class InterfaceLayer
{
public:
    explicit InterfaceLayer(const std::string& fontFile);
    /// The view's graphics context must still be there, or nothing must have been drawn.
    ~InterfaceLayer();
    InterfaceLayer(const InterfaceLayer&) = delete;
    InterfaceLayer& operator=(const InterfaceLayer&) = delete;

    /// Draws over this view and listens at the root of its scene, ahead of whatever hangs below.
    void attach(osgViewer::View& view, osg::Node& sceneRoot);

    /// The pixels at the left and at the bottom that belong to panels.
    void setPanels(int left, int bottom);

    /// The panels that lie over the scene.
    void setFloating(const std::vector<Rect>& floating);

    /// Gives the keyboard to the first panel, from there to the next one, and from the last one back to the
    /// scene.
    void focusNextPanel(const std::vector<std::string>& panels);
    /// The panel that has the keyboard; empty: none.
    std::string focusedPanel() const;

    /// Between begin and end the panels are described. Between frames of the viewer.
    void begin(int width, int height, double seconds);
    void end();

    /// Asks for a picture of the scene alone, in that area, from the next frame that is drawn.
    void askForPicture(const ViewArea& area);
    /// @return the picture once it is there, then null again.
    osg::ref_ptr<osg::Image> takePicture();

private:
    struct Context;
    std::unique_ptr<Context> m_spContext;
};

}  // namespace KivPlayer
