#include "KivCharacterization/Characterization/namelabeltext.h"

#include <OpenThreads/ScopedLock>

#include "KivCharacterization/Characterization/glyphfront.h"

namespace KivCharacterization {

NameLabelText::NameLabelText()
{
    setDataVariance(osg::Object::DYNAMIC);
}

NameLabelText::NameLabelText(const NameLabelText& other, const osg::CopyOp& copyop)
    : osgText::Text3D(other, copyop)
{}

NameLabelText::~NameLabelText() = default;

void NameLabelText::drawImplementation(osg::RenderInfo& renderInfo) const
{
    // The base reads its own members, so they are taken back for the length of the call. Two windows may
    // draw the label at once.
    const OpenThreads::ScopedLock<OpenThreads::Mutex> lock(m_drawMutex);
    auto* self = const_cast<NameLabelText*>(this);
    const bool autoRotate = _autoRotateToScreen;
    const CharacterSizeMode sizeMode = _characterSizeMode;
    self->_autoRotateToScreen = false;
    self->_characterSizeMode = OBJECT_COORDS;
    osgText::Text3D::drawImplementation(renderInfo);
    self->_autoRotateToScreen = autoRotate;
    self->_characterSizeMode = sizeMode;
}

void NameLabelText::computeGlyphRepresentation()
{
    osgText::Text3D::computeGlyphRepresentation();
    if (reduceGlyphs()) {
        osgText::Text3D::computeGlyphRepresentation();
    }
}

/// @return whether a glyph of the text was one that the font had not shown in a label yet.
bool NameLabelText::reduceGlyphs()
{
    bool reduced = false;
    for (const LineRenderInfo& line : _textRenderInfo) {
        for (const GlyphRenderInfo& glyph : line) {
            reduced = KeepFrontOnly(*glyph._glyphGeometry) || reduced;
        }
    }
    return reduced;
}

}  // namespace KivCharacterization
