#include "KivCharacterization/Characterization/namelabeltext.h"

#include <osg/Version>

#include "KivCharacterization/Characterization/glyphfront.h"

namespace KivCharacterization {

NameLabelText::NameLabelText()
{
    setDataVariance(osg::Object::DYNAMIC);
}

NameLabelText::NameLabelText(const NameLabelText& other, const osg::CopyOp& copyop)
    : osgText::Text3D(other, copyop)
{
    collectFronts();
}

NameLabelText::~NameLabelText() = default;

void NameLabelText::resizeGLObjectBuffers(unsigned int maxSize)
{
    osgText::Text3D::resizeGLObjectBuffers(maxSize);
    if (m_spFronts) {
        m_spFronts->resizeGLObjectBuffers(maxSize);
    }
}

void NameLabelText::releaseGLObjects(osg::State* state) const
{
    osgText::Text3D::releaseGLObjects(state);
    if (m_spFronts) {
        m_spFronts->releaseGLObjects(state);
    }
}

void NameLabelText::computeGlyphRepresentation()
{
    osgText::Text3D::computeGlyphRepresentation();
    if (reduceGlyphs()) {
        osgText::Text3D::computeGlyphRepresentation();
    }
    collectFronts();
}

/// @return whether a glyph of the text was one that the font had not shown in a label yet.
bool NameLabelText::reduceGlyphs()
{
    bool reduced = false;
    for (const LineRenderInfo& line : _textRenderInfo) {
        for (const GlyphRenderInfo& glyph : line) {
            reduced = keepFrontOnly(*glyph._glyphGeometry) || reduced;
        }
    }
    return reduced;
}

#if OSG_VERSION_GREATER_OR_EQUAL(3, 6, 0)

void NameLabelText::drawImplementation(osg::RenderInfo& renderInfo) const
{
    if (!m_spFronts) {
        return;
    }
    osg::State& state = *renderInfo.getState();
    const osg::Matrixd above = state.getModelViewMatrix();
    osg::Matrixd matrix;
    // Asked without the state, it neither turns the text to the screen nor sizes it by it.
    computeMatrix(matrix);
    state.applyModelViewMatrix(matrix * above);
    state.applyModelViewAndProjectionUniformsIfRequired();
    m_spFronts->drawImplementation(renderInfo);
    state.applyModelViewMatrix(above);
    state.applyModelViewAndProjectionUniformsIfRequired();
}

void NameLabelText::collectFronts()
{
    m_spFronts = new osg::Geometry;
    m_spFronts->setDataVariance(osg::Object::DYNAMIC);
    m_spFronts->setVertexArray(_coords.get());
    m_spFronts->setNormalArray(_normals.get(), osg::Array::BIND_PER_VERTEX);
    const osg::ref_ptr<osg::Vec4Array> colour = new osg::Vec4Array(1, &_color);
    m_spFronts->setColorArray(colour.get(), osg::Array::BIND_OVERALL);
    m_spFronts->setPrimitiveSetList(_frontPrimitiveSetList);
}

#else

// Draws neither turned to the screen nor sized by it.
void NameLabelText::drawImplementation(osg::RenderInfo& renderInfo) const
{
    osgText::Text3D::drawImplementation(renderInfo);
}

void NameLabelText::collectFronts() {}

#endif

}  // namespace KivCharacterization
