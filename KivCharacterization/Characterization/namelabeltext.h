#pragma once

#include <osg/Geometry>
#include <osgText/Text3D>

namespace KivCharacterization {

/// A name in the scene. Where it stands and how it turns is up to the nodes above it (a transform and a
/// billboard), whatever its own auto-rotation and size mode say: 3-D text of OpenSceneGraph up to 3.4
/// ignored both, while 3.6 with both of them on draws the text edge-on and a unit high. Of the glyphs only
/// the front is kept and drawn, for all labels of the font: a label's style has no thickness.
class NameLabelText : public osgText::Text3D
{
public:
    NameLabelText();
    NameLabelText(const NameLabelText& other, const osg::CopyOp& copyop = osg::CopyOp::SHALLOW_COPY);
    META_Object(KivCharacterization, NameLabelText)

    /// Changes nothing in the label: several windows may draw it at once.
    void drawImplementation(osg::RenderInfo& renderInfo) const override;
    void resizeGLObjectBuffers(unsigned int maxSize) override;
    void releaseGLObjects(osg::State* state = nullptr) const override;

protected:
    ~NameLabelText() override;
    void computeGlyphRepresentation() override;

private:
    bool reduceGlyphs();
    void collectFronts();

    osg::ref_ptr<osg::Geometry> m_spFronts;  ///< of all letters, in the colour that the text had then
};

}  // namespace KivCharacterization
