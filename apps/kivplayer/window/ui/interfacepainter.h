#pragma once

#include <imgui.h>
#include <osg/Camera>
#include <osg/Image>
#include <osg/ref_ptr>

#include "apps/kivplayer/window/state/viewarea.h"

namespace KivPlayer {

/// Draws what Dear ImGui has described over a finished picture of the scene.
class InterfacePainter : public osg::Camera::DrawCallback
{
public:
    void operator()(osg::RenderInfo& info) const override;

    /// Panels may be described only once their font is in the context, which the first frame sees to.
    void setDescribed() { m_described = ImGui::GetIO().Fonts->TexID != nullptr; }
    void forgetPanels() { m_described = false; }

    /// Keeps a picture of the scene in that area, without panels, from the next frame on.
    void keepPicture(const ViewArea& area);
    /// Null until it is there and after it was taken.
    osg::ref_ptr<osg::Image> takePicture();

private:
    static void paint(osg::State& state, ImDrawData& panels);

    bool m_described = false;
    ViewArea m_area;
    mutable bool m_wanted = false;
    mutable osg::ref_ptr<osg::Image> m_spPicture;
};

}  // namespace KivPlayer
