#include "apps/kivplayer/output/captions.h"

#include <algorithm>

namespace KivPlayer {

namespace {

constexpr float kLetterHeight = 16.0f;  // pixels
constexpr float kMargin = 8.0f;

}  // namespace

Caption::Caption(int width, int height, const std::string& font, Edge edge)
    : m_width(width), m_edge(edge), m_spCamera(new osg::Camera), m_spText(new osgText::Text)
{
    m_spText->setFont(osgText::readRefFontFile(font));
    m_spText->setFontResolution(48, 48);
    m_spText->setCharacterSize(kLetterHeight);
    if (edge == Edge::Lower) {
        m_spText->setPosition(osg::Vec3(kMargin, 1.5f * kMargin, 0.0f));
        m_spText->setAlignment(osgText::Text::LEFT_BASE_LINE);
    } else {
        m_spText->setPosition(osg::Vec3(kMargin, static_cast<float>(height) - kMargin, 0.0f));
        m_spText->setAlignment(osgText::Text::LEFT_TOP);
        m_spText->setMaximumWidth(static_cast<float>(width) - 2.0f * kMargin);
    }
    m_spText->setColor(osg::Vec4(0.95f, 0.95f, 0.95f, 1.0f));
    m_spText->setDataVariance(osg::Object::DYNAMIC);
    m_spCamera->setReferenceFrame(osg::Transform::ABSOLUTE_RF);
    m_spCamera->setProjectionMatrixAsOrtho2D(0.0, width, 0.0, height);
    m_spCamera->setViewMatrix(osg::Matrixd::identity());
    m_spCamera->setClearMask(GL_DEPTH_BUFFER_BIT);
    m_spCamera->setRenderOrder(osg::Camera::POST_RENDER);
    m_spCamera->setAllowEventFocus(false);
    m_spCamera->getOrCreateStateSet()->setMode(GL_LIGHTING, osg::StateAttribute::OFF);
    m_spCamera->getOrCreateStateSet()->setMode(GL_DEPTH_TEST, osg::StateAttribute::OFF);
    m_spCamera->addChild(m_spText);
    m_spCamera->setNodeMask(0);
}

void Caption::say(const std::string& text)
{
    m_spCamera->setNodeMask(text.empty() ? 0u : ~0u);
    m_spText->setCharacterSize(kLetterHeight);
    m_spText->setText(text, osgText::String::ENCODING_UTF8);
    const osg::BoundingBox box = m_spText->getBoundingBox();
    const float room = static_cast<float>(m_width) - 2.0f * kMargin;
    if (m_edge == Edge::Lower && box.valid() && box.xMax() - box.xMin() > room)
        m_spText->setCharacterSize(std::max(4.0f, kLetterHeight * room / (box.xMax() - box.xMin())));
}

}  // namespace KivPlayer
