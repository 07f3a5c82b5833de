#include "apps/kivplayer/content/surfaces.h"

#include <osg/Billboard>
#include <osg/Geometry>
#include <osg/Material>
#include <osg/NodeVisitor>
#include <osg/Switch>
#include <osgText/TextBase>

#include <vector>

#include "KivCharacterization/naming.h"

namespace KivPlayer {

namespace {

void setFlag(osg::Node& node, const char* name, bool value)
{
    node.getOrCreateStateSet()->addUniform(new osg::Uniform(name, value));
}

class SurfaceVisitor : public osg::NodeVisitor
{
public:
    SurfaceVisitor() : osg::NodeVisitor(TRAVERSE_ALL_CHILDREN) { m_materials.push_back(nullptr); }

    void apply(osg::Node& node) override
    {
        enter(node);
        traverse(node);
        m_materials.pop_back();
    }

    void apply(osg::Switch& node) override
    {
        if (node.getNodeMask() == KivCharacterization::kOverlayMask)
            setFlag(node, "kivCastsNoShadow", true);
        apply(static_cast<osg::Group&>(node));
    }

    void apply(osg::Billboard& node) override
    {
        for (unsigned i = 0; i < node.getNumDrawables(); ++i)
            if (dynamic_cast<osgText::TextBase*>(node.getDrawable(i)))
                setFlag(node, "kivUnlit", true);
        apply(static_cast<osg::Node&>(node));
    }

    void apply(osg::Geometry& geometry) override
    {
        enter(geometry);
        const osg::Material* material = m_materials.back();
        const osg::Array* colours = geometry.getColorArray();
        const bool byVertex = colours && colours->getBinding() != osg::Array::BIND_OFF;
        if (byVertex && (!material || material->getColorMode() != osg::Material::OFF))
            setFlag(geometry, "kivColourFromVertices", true);
        m_materials.pop_back();
    }

private:
    void enter(osg::Node& node)
    {
        const osg::Material* material = m_materials.back();
        if (const osg::StateSet* state = node.getStateSet())
            if (const auto* own =
                    dynamic_cast<const osg::Material*>(state->getAttribute(osg::StateAttribute::MATERIAL)))
                material = own;
        m_materials.push_back(material);
    }

    std::vector<const osg::Material*> m_materials;
};

}  // namespace

void describeSurfaces(osg::Node& actor)
{
    SurfaceVisitor visitor;
    // Overlays are masked out of nothing here: they are described as well while they are hidden.
    visitor.setNodeMaskOverride(~0u);
    actor.accept(visitor);
}

}  // namespace KivPlayer
