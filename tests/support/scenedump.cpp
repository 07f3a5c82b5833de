#include "tests/support/scenedump.h"

#include <osg/Geometry>
#include <osg/MatrixTransform>
#include <osg/NodeVisitor>
#include <osg/Switch>

#include <cmath>
#include <cstdio>

#include "KivManipulator/propsgeode.h"

namespace KivTestSupport {

namespace {

std::string digits(double number)
{
    const double rounded = std::round(number * 1e4) / 1e4;
    char text[64];
    std::snprintf(text, sizeof text, "%.10g", rounded == 0.0 ? 0.0 : rounded);
    return text;
}

std::string matrixText(const osg::Matrixd& matrix)
{
    std::string text = " [";
    for (int row = 0; row < 4; ++row) {
        text += row > 0 ? " | " : "";
        for (int column = 0; column < 4; ++column) {
            text += (column > 0 ? " " : "") + digits(matrix(row, column));
        }
    }
    return text + "]";
}

std::string switchText(const osg::Switch& node)
{
    std::string text = " ";
    for (unsigned int i = 0; i < node.getNumChildren(); ++i) {
        text += node.getValue(i) ? '1' : '0';
    }
    return node.getNumChildren() > 0 ? text : " empty";
}

class CDumpVisitor : public osg::NodeVisitor
{
public:
    CDumpVisitor() : osg::NodeVisitor(TRAVERSE_ALL_CHILDREN) { setNodeMaskOverride(~0u); }

    std::string text;

    using osg::NodeVisitor::apply;
    void apply(osg::Node& node) override { dumpNode(node); }
    void apply(osg::Drawable& drawable) override { dumpNode(drawable); }
    void apply(osg::Geometry& geometry) override { dumpNode(geometry); }

private:
    void dumpNode(osg::Node& node)
    {
        text += std::string(2 * (getNodePath().size() - 1), ' ') + node.className();
        if (!node.getName().empty()) {
            text += " \"" + node.getName() + "\"";
        }
        if (node.getNodeMask() != ~0u) {
            text += " mask=" + std::to_string(node.getNodeMask());
        }
        if (const osg::Switch* asSwitch = node.asSwitch()) {
            text += switchText(*asSwitch);
        }
        const osg::Transform* transform = node.asTransform();
        const osg::MatrixTransform* matrixTransform = transform ? transform->asMatrixTransform() : nullptr;
        if (matrixTransform && !matrixTransform->getMatrix().isIdentity()) {
            text += matrixText(matrixTransform->getMatrix());
        }
        text += '\n';
        // A props' draggers are the manipulator library's own business.
        if (!dynamic_cast<KivManipulator::PropsGeode*>(&node)) {
            traverse(node);
        }
    }
};

}  // namespace

std::string dumpScene(osg::Node& scene)
{
    CDumpVisitor visitor;
    scene.accept(visitor);
    return visitor.text;
}

}  // namespace KivTestSupport
