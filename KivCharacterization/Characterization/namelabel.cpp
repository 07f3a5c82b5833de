#include "KivCharacterization/Characterization/namelabel.h"

#include <osg/Billboard>
#include <osgText/Style>

#include "KivCharacterization/Characterization/actorupdatecallbacks.h"
#include "KivCharacterization/Characterization/namelabeltext.h"

namespace KivCharacterization {

namespace {

constexpr float kCharacterSize = 12.0f;

osg::ref_ptr<osgText::Text3D> makeText(osgText::Font& font, const std::string& name)
{
    osg::ref_ptr<osgText::Style> style = new osgText::Style;
    style->setThicknessRatio(0.0f);
    osg::ref_ptr<osgText::Text3D> text = new NameLabelText;
    text->setFont(&font);
    text->setStyle(style.get());
    text->setCharacterSize(kCharacterSize);
    text->setDrawMode(osgText::TextBase::TEXT);
    text->setAxisAlignment(osgText::TextBase::XZ_PLANE);
    text->setAlignment(osgText::TextBase::CENTER_CENTER);
    text->setColor(osg::Vec4(1.0f, 1.0f, 1.0f, 1.0f));
    text->setText(name, osgText::String::ENCODING_UTF8);
    text->setAutoRotateToScreen(true);
    text->setCharacterSizeMode(osgText::TextBase::SCREEN_COORDS);
    return text;
}

osg::Node* findHead(osg::Node& node)
{
    if (node.getName().find("Head") != std::string::npos) {
        return &node;
    }
    osg::Group* group = node.asGroup();
    for (unsigned int i = 0; group && i < group->getNumChildren(); ++i) {
        if (osg::Node* head = findHead(*group->getChild(i))) {
            return head;
        }
    }
    return nullptr;
}

}  // namespace

SNameLabel makeNameLabel(osgText::Font& font, const std::string& name)
{
    SNameLabel label;
    label.text = makeText(font, name);
    label.labelSwitch = new osg::Switch;
    label.transform = new osg::MatrixTransform;
    osg::ref_ptr<osg::Billboard> billboard = new osg::Billboard;
    billboard->setMode(osg::Billboard::POINT_ROT_EYE);
    billboard->addDrawable(label.text.get());
    label.transform->addChild(billboard.get());
    label.labelSwitch->addChild(label.transform.get());
    return label;
}

void attachNameLabel(const SNameLabel& label, osg::Node& skeleton, osg::Switch& skeletonSwitch)
{
    osg::Node* anchor = findHead(skeleton);
    if (!anchor) {
        anchor = &skeletonSwitch;
    }
    if (anchor->getNumParents() > 0) {
        anchor->getParent(0)->addChild(label.labelSwitch.get());
    }
    anchor->addUpdateCallback(new ActorNameUpdateCallback(anchor, label.transform.get(), label.text.get()));
}

}  // namespace KivCharacterization
