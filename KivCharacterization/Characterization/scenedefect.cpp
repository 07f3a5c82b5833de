#include "KivCharacterization/Characterization/scenedefect.h"

#include <osg/Geode>
#include <osg/Geometry>
#include <osg/MatrixTransform>
#include <osg/NodeVisitor>

#include <algorithm>
#include <cmath>

namespace KivCharacterization {

namespace {

constexpr std::size_t kDeepestNesting = 256;

/// Finds the largest index of a primitive set without trusting it to be drawable.
unsigned int largestIndex(osg::PrimitiveSet& primitives)
{
    if (osg::DrawElements* elements = primitives.getDrawElements()) {
        unsigned int largest = 0;
        for (unsigned int i = 0; i < elements->getNumIndices(); ++i) {
            largest = std::max(largest, elements->getElement(i));
        }
        return largest;
    }
    const unsigned int count = primitives.getNumIndices();
    return count == 0 ? 0 : primitives.index(count - 1);
}

template <typename ArrayType>
bool allFinite(const osg::Array& array, bool& known)
{
    const auto* values = dynamic_cast<const ArrayType*>(&array);
    if (!values) {
        return true;
    }
    known = true;
    return std::all_of(values->begin(), values->end(), [](const auto& value) {
        return std::isfinite(value.x()) && std::isfinite(value.y()) && std::isfinite(value.z());
    });
}

std::string vertexDefect(const osg::Array& vertices)
{
    bool known = false;
    const bool finite = allFinite<osg::Vec3Array>(vertices, known) &&
                        allFinite<osg::Vec3dArray>(vertices, known) &&
                        allFinite<osg::Vec4Array>(vertices, known);
    if (!known) {
        return "vertices are of no type that can be drawn";
    }
    return finite ? std::string() : "a vertex is not finite";
}

std::string geometryDefect(osg::Geometry& geometry)
{
    const osg::Array* vertices = geometry.getVertexArray();
    if (!vertices || vertices->getNumElements() == 0) {
        return geometry.getNumPrimitiveSets() == 0 ? std::string() : "a geometry has no vertices";
    }
    std::string defect = vertexDefect(*vertices);
    if (!defect.empty()) {
        return defect;
    }
    const unsigned int count = vertices->getNumElements();
    for (const osg::Array* array : {geometry.getNormalArray(), geometry.getColorArray(),
                                    geometry.getSecondaryColorArray(), geometry.getFogCoordArray()}) {
        if (array && array->getBinding() == osg::Array::BIND_PER_VERTEX && array->getNumElements() < count) {
            return "a geometry has fewer normals or colours than vertices";
        }
    }
    for (unsigned int i = 0; i < geometry.getNumPrimitiveSets(); ++i) {
        osg::PrimitiveSet* primitives = geometry.getPrimitiveSet(i);
        if (!primitives) {
            return "a geometry has an empty primitive set";
        }
        if (primitives->getNumIndices() > 0 && largestIndex(*primitives) >= count) {
            return "an index points behind the last vertex";
        }
    }
    return {};
}

class CSceneDefectVisitor : public osg::NodeVisitor
{
public:
    CSceneDefectVisitor() : osg::NodeVisitor(TRAVERSE_ALL_CHILDREN)
    {
        setNodeMaskOverride(~0u);  // what is hidden today may be shown tomorrow
    }

    const std::string& defect() const { return m_strDefect; }

    void apply(osg::Node& node) override { descend(node); }
    using osg::NodeVisitor::apply;

    void apply(osg::MatrixTransform& transform) override
    {
        const double* numbers = transform.getMatrix().ptr();
        if (!std::all_of(numbers, numbers + 16, [](double number) { return std::isfinite(number); })) {
            m_strDefect = "the matrix of \"" + transform.getName() + "\" is not finite";
        }
        descend(transform);
    }

    void apply(osg::Drawable& drawable) override
    {
        if (osg::Geometry* geometry = drawable.asGeometry()) {
            m_strDefect = geometryDefect(*geometry);
        }
        descend(drawable);
    }

private:
    void descend(osg::Node& node)
    {
        if (!m_strDefect.empty()) {
            return;
        }
        if (getNodePath().size() > kDeepestNesting) {
            m_strDefect = "nodes are nested more than 256 deep";
            return;
        }
        traverse(node);
    }

    std::string m_strDefect;
};

}  // namespace

std::string SceneDefect(osg::Node& scene)
{
    osg::ref_ptr<CSceneDefectVisitor> visitor = new CSceneDefectVisitor;
    scene.accept(*visitor);
    return visitor->defect();
}

}  // namespace KivCharacterization
