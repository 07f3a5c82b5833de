#include "KivCharacterization/Characterization/glyphfront.h"

#include <osg/Array>
#include <osg/CopyOp>
#include <osg/PrimitiveSet>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace KivCharacterization {

namespace {

using PrimitiveSets = osg::Geometry::PrimitiveSetList;

osg::ref_ptr<osg::Object> copyOf(const osg::Object& object)
{
    return object.clone(osg::CopyOp::DEEP_COPY_ALL);
}

/// In ascending order.
std::vector<unsigned int> usedVertices(const PrimitiveSets& shape)
{
    std::vector<unsigned int> used;
    for (const osg::ref_ptr<osg::PrimitiveSet>& primitives : shape) {
        for (unsigned int i = 0; i < primitives->getNumIndices(); ++i) {
            used.push_back(primitives->index(i));
        }
    }
    std::sort(used.begin(), used.end());
    used.erase(std::unique(used.begin(), used.end()), used.end());
    return used;
}

osg::ref_ptr<osg::Vec3Array> chosen(const osg::Vec3Array& all, const std::vector<unsigned int>& places)
{
    const osg::ref_ptr<osg::Object> copy = copyOf(all);
    const osg::ref_ptr<osg::Vec3Array> some = static_cast<osg::Vec3Array*>(copy.get());
    for (std::size_t i = 0; i < places.size(); ++i) {
        (*some)[i] = all[places[i]];
    }
    some->resize(places.size());
    some->trim();
    return some;
}

osg::ref_ptr<osg::PrimitiveSet> renumbered(const osg::PrimitiveSet& primitives,
                                           const std::vector<unsigned int>& places)
{
    const osg::ref_ptr<osg::Object> copy = copyOf(primitives);
    const osg::ref_ptr<osg::PrimitiveSet> some = static_cast<osg::PrimitiveSet*>(copy.get());
    osg::DrawElements& elements = *some->getDrawElements();
    for (unsigned int i = 0; i < elements.getNumIndices(); ++i) {
        const auto place = std::lower_bound(places.begin(), places.end(), elements.index(i));
        elements.setElement(i, static_cast<unsigned int>(place - places.begin()));
    }
    return some;
}

/// Shapes whose triangles are no lists of vertices stay as they are.
void dropUnusedVertices(osgText::GlyphGeometry& glyph)
{
    PrimitiveSets& front = glyph.getFrontPrimitiveSetList();
    const bool isListed = std::all_of(front.begin(), front.end(), [](const auto& primitives) {
        return primitives->getDrawElements() != nullptr;
    });
    if (!isListed || !glyph.getVertexArray() || !glyph.getNormalArray()) {
        return;
    }
    const std::vector<unsigned int> used = usedVertices(front);
    glyph.setVertexArray(chosen(*glyph.getVertexArray(), used).get());
    glyph.setNormalArray(chosen(*glyph.getNormalArray(), used).get());
    for (osg::ref_ptr<osg::PrimitiveSet>& primitives : front) {
        primitives = renumbered(*primitives, used);
    }
}

}  // namespace

bool keepFrontOnly(osgText::GlyphGeometry& glyph)
{
    if (glyph.getBackPrimitiveSetList().empty() && glyph.getWallPrimitiveSetList().empty()) {
        return false;
    }
    glyph.getBackPrimitiveSetList().clear();
    glyph.getWallPrimitiveSetList().clear();
    dropUnusedVertices(glyph);
    return true;
}

}  // namespace KivCharacterization
