#include "apps/kivplayer/stage/hiddenmarkers.h"

#include <osg/BlendColor>
#include <osg/BlendFunc>
#include <osg/Depth>
#include <osg/NodeVisitor>

#include "KivCharacterization/naming.h"

namespace KivPlayer {

namespace {

constexpr float kOpacity = 0.55f;
constexpr int kBehindEverything = 13;

}  // namespace

HiddenMarkers::HiddenMarkers(osg::Group* figures)
{
    addChild(figures);
    constexpr unsigned kForced = osg::StateAttribute::ON | osg::StateAttribute::OVERRIDE;
    osg::StateSet* state = getOrCreateStateSet();
    state->setAttributeAndModes(new osg::Depth(osg::Depth::GREATER, 0.0, 1.0, false), kForced);
    state->setAttributeAndModes(
        new osg::BlendFunc(osg::BlendFunc::CONSTANT_ALPHA, osg::BlendFunc::ONE_MINUS_CONSTANT_ALPHA),
        kForced);
    state->setAttribute(new osg::BlendColor(osg::Vec4(0.0f, 0.0f, 0.0f, kOpacity)), kForced);
    state->setRenderBinDetails(kBehindEverything, "RenderBin", osg::StateSet::OVERRIDE_RENDERBIN_DETAILS);
}

void HiddenMarkers::traverse(osg::NodeVisitor& visitor)
{
    if (visitor.getVisitorType() != osg::NodeVisitor::CULL_VISITOR)
        return;
    const osg::Node::NodeMask mask = visitor.getTraversalMask();
    // Markers hang beside the skeleton, under this mask. What shares it inside the skeleton is not reached: a
    // prop stays hidden behind a body, a painted contact draws its hidden part by itself.
    visitor.setTraversalMask(KivCharacterization::kOverlayMask);
    osg::Group::traverse(visitor);
    visitor.setTraversalMask(mask);
}

}  // namespace KivPlayer
