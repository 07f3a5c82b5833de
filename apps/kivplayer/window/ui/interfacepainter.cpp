#include "apps/kivplayer/window/ui/interfacepainter.h"

#include <backends/imgui_impl_opengl2.h>
#include <osg/GLExtensions>
#include <osg/RenderInfo>
#include <osg/State>

#include <utility>

namespace KivPlayer {

namespace {

constexpr unsigned kTextureUnits = 8;  // what the stage may have enabled

}  // namespace

void InterfacePainter::operator()(osg::RenderInfo& info) const
{
    if (std::exchange(m_wanted, false)) {
        m_spPicture = new osg::Image;
        m_spPicture->readPixels(m_area.left, m_area.bottom, m_area.windowWidth - m_area.left,
                                m_area.windowHeight - m_area.bottom, GL_RGB, GL_UNSIGNED_BYTE);
    }
    // Makes the font's texture, which needs the context; what is described from then on refers to it.
    ImGui_ImplOpenGL2_NewFrame();
    ImDrawData* panels = ImGui::GetDrawData();
    if (panels && m_described)
        paint(*info.getState(), *panels);
}

void InterfacePainter::keepPicture(const ViewArea& area)
{
    m_area = area;
    m_wanted = true;
}

osg::ref_ptr<osg::Image> InterfacePainter::takePicture()
{
    return std::exchange(m_spPicture, nullptr);
}

void InterfacePainter::paint(osg::State& state, ImDrawData& panels)
{
    const auto* gl = state.get<osg::GLExtensions>();
    // Through the state, so that it knows: what the scene draws first would read from the wrong buffer
    // otherwise.
    state.unbindVertexBufferObject();
    state.unbindElementBufferObject();
    glPushClientAttrib(GL_CLIENT_ALL_ATTRIB_BITS);
    glPushAttrib(GL_ALL_ATTRIB_BITS);
    gl->glUseProgram(0);
    for (unsigned unit = kTextureUnits; unit-- > 0;) {
        gl->glActiveTexture(GL_TEXTURE0 + unit);
        gl->glClientActiveTexture(GL_TEXTURE0 + unit);
        glDisable(GL_TEXTURE_2D);
        glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    }
    ImGui_ImplOpenGL2_RenderDrawData(&panels);
    // Modes are what they were and known to be; to call them dirty would turn what is known around.
    glPopAttrib();
    glPopClientAttrib();
    state.setLastAppliedProgramObject(nullptr);
    state.dirtyAllAttributes();
    state.dirtyAllVertexArrays();
}

}  // namespace KivPlayer
