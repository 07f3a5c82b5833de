#include "apps/kivplayer/stage/depthview.h"

#include <osg/ColorMask>
#include <osg/PolygonOffset>
#include <osg/Program>

#include <cmath>

#include "apps/kivplayer/stage/drawnonly.h"
#include "apps/kivplayer/stage/stageshaders.h"

namespace KivPlayer {

namespace {

osg::ref_ptr<osg::Texture2D> depthTexture(int side, bool comparing)
{
    osg::ref_ptr<osg::Texture2D> texture = new osg::Texture2D;
    texture->setTextureSize(side, side);
    texture->setInternalFormat(GL_DEPTH_COMPONENT24);
    texture->setSourceFormat(GL_DEPTH_COMPONENT);
    texture->setSourceType(GL_UNSIGNED_INT);
    texture->setFilter(osg::Texture::MIN_FILTER, osg::Texture::LINEAR);
    texture->setFilter(osg::Texture::MAG_FILTER, osg::Texture::LINEAR);
    texture->setWrap(osg::Texture::WRAP_S, osg::Texture::CLAMP_TO_EDGE);
    texture->setWrap(osg::Texture::WRAP_T, osg::Texture::CLAMP_TO_EDGE);
    texture->setShadowComparison(comparing);
    texture->setShadowTextureMode(osg::Texture::LUMINANCE);
    return texture;
}

}  // namespace

DepthView::DepthView(osg::Node* figures, int side, bool comparing)
    : m_side(side), m_spCamera(new osg::Camera), m_spTexture(depthTexture(side, comparing))
{
    m_spCamera->setRenderOrder(osg::Camera::PRE_RENDER);
    m_spCamera->setRenderTargetImplementation(osg::Camera::FRAME_BUFFER_OBJECT);
    m_spCamera->setReferenceFrame(osg::Transform::ABSOLUTE_RF_INHERIT_VIEWPOINT);
    m_spCamera->setComputeNearFarMode(osg::CullSettings::DO_NOT_COMPUTE_NEAR_FAR);
    m_spCamera->setCullingMode(osg::CullSettings::VIEW_FRUSTUM_CULLING);
    m_spCamera->setViewport(0, 0, side, side);
    // The window keeps its main view to a part of itself.
    m_spCamera->getOrCreateStateSet()->setMode(GL_SCISSOR_TEST,
                                               osg::StateAttribute::OFF | osg::StateAttribute::PROTECTED);
    m_spCamera->setClearMask(GL_DEPTH_BUFFER_BIT);
    m_spCamera->attach(osg::Camera::DEPTH_BUFFER, m_spTexture);
    m_spCamera->setImplicitBufferAttachmentMask(0, 0);
    m_spCamera->setDrawBuffer(GL_NONE);
    m_spCamera->setReadBuffer(GL_NONE);

    osg::StateSet* state = m_spCamera->getOrCreateStateSet();
    osg::ref_ptr<osg::Program> program = new osg::Program;
    program->addShader(new osg::Shader(osg::Shader::VERTEX, StageShaders::kDepthVertex));
    program->addShader(new osg::Shader(osg::Shader::FRAGMENT, StageShaders::kDepthFragment));
    state->setAttributeAndModes(program, osg::StateAttribute::ON | osg::StateAttribute::OVERRIDE);
    state->setAttributeAndModes(new osg::PolygonOffset(1.5f, 4.0f));
    state->setMode(GL_BLEND, osg::StateAttribute::OFF | osg::StateAttribute::OVERRIDE);
    state->addUniform(new osg::Uniform("kivCastsNoShadow", false));

    // A second parent would make every update callback below run twice a frame.
    osg::ref_ptr<DrawnOnly> again = new DrawnOnly;
    again->addChild(figures);
    m_spCamera->addChild(again);
}

void DepthView::setSide(int side)
{
    if (side == m_side)
        return;
    m_side = side;
    m_spTexture->setTextureSize(side, side);
    m_spTexture->dirtyTextureObject();
    m_spCamera->setViewport(0, 0, side, side);
    m_spCamera->dirtyAttachmentMap();
}

void DepthView::look(const osg::Vec3d& centre, const osg::Vec3d& direction, double radius, double before,
                     double behind)
{
    osg::Vec3d along = direction;
    along.normalize();
    const osg::Vec3d up = std::abs(along.z()) > 0.99 ? osg::Vec3d(0, 1, 0) : osg::Vec3d(0, 0, 1);
    osg::Vec3d right = along ^ up;
    right.normalize();
    const osg::Vec3d above = right ^ along;
    const double texel = 2.0 * radius / m_side;
    const double offRight = std::remainder(centre * right, texel);
    const double offAbove = std::remainder(centre * above, texel);
    const osg::Vec3d position = centre - right * offRight - above * offAbove;

    m_spCamera->setViewMatrixAsLookAt(position - along * before, position, up);
    m_spCamera->setProjectionMatrixAsOrtho(-radius, radius, -radius, radius, 0.0, before + behind);
    m_toTexture = m_spCamera->getViewMatrix() * m_spCamera->getProjectionMatrix() *
                  osg::Matrixd::translate(1.0, 1.0, 1.0) * osg::Matrixd::scale(0.5, 0.5, 0.5);
}

}  // namespace KivPlayer
