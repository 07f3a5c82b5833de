#include "KivCharacterization/Characterization/scenedefect.h"

#include <osg/Geode>
#include <osg/Geometry>
#include <osg/MatrixTransform>
#include <osg/NodeVisitor>

#include <algorithm>
#include <cmath>
#include <set>

namespace KivCharacterization {

namespace {

constexpr std::size_t kDeepestNesting = 256;

/// Finds the largest index of a primitive set that has some, without trusting it to be drawable.
unsigned int largestIndex(osg::PrimitiveSet& primitives)
{
    if (osg::DrawElements* elements = primitives.getDrawElements()) {
        unsigned int largest = 0;
        for (unsigned int i = 0; i < elements->getNumIndices(); ++i) {
            largest = std::max(largest, elements->getElement(i));
        }
        return largest;
    }
    return primitives.index(primitives.getNumIndices() - 1);
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

bool isShort(const osg::Array* array, unsigned int vertices)
{
    return array && array->getBinding() == osg::Array::BIND_PER_VERTEX && array->getNumElements() < vertices;
}

bool hasShortArray(const osg::Geometry& geometry, unsigned int vertices)
{
    const auto anyShort = [vertices](const osg::Geometry::ArrayList& arrays) {
        return std::any_of(arrays.begin(), arrays.end(),
                           [vertices](const auto& array) { return isShort(array.get(), vertices); });
    };
    return isShort(geometry.getNormalArray(), vertices) || isShort(geometry.getColorArray(), vertices) ||
           isShort(geometry.getSecondaryColorArray(), vertices) ||
           isShort(geometry.getFogCoordArray(), vertices) || anyShort(geometry.getTexCoordArrayList()) ||
           anyShort(geometry.getVertexAttribArrayList());
}

bool startsBeforeTheFirst(const osg::PrimitiveSet& primitives)
{
    if (const auto* arrays = dynamic_cast<const osg::DrawArrays*>(&primitives)) {
        return arrays->getFirst() < 0;
    }
    const auto* lengths = dynamic_cast<const osg::DrawArrayLengths*>(&primitives);
    return lengths && lengths->getFirst() < 0;
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
    if (hasShortArray(geometry, count)) {
        return "a geometry has an array that is shorter than its vertices";
    }
    for (unsigned int i = 0; i < geometry.getNumPrimitiveSets(); ++i) {
        osg::PrimitiveSet* primitives = geometry.getPrimitiveSet(i);
        if (!primitives) {
            return "a geometry has an empty primitive set";
        }
        const bool outside = primitives->getNumIndices() > 0 && largestIndex(*primitives) >= count;
        if (outside || startsBeforeTheFirst(*primitives)) {
            return "an index points outside the vertices";
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
            note("the matrix of \"" + transform.getName() + "\" is not finite");
        }
        descend(transform);
    }

    void apply(osg::Drawable& drawable) override
    {
        if (osg::Geometry* geometry = drawable.asGeometry()) {
            note(geometryDefect(*geometry));
        }
        descend(drawable);
    }

private:
    /// Keeps the first defect.
    void note(const std::string& defect)
    {
        if (m_strDefect.empty()) {
            m_strDefect = defect;
        }
    }

    void descend(osg::Node& node)
    {
        if (getNodePath().size() > kDeepestNesting) {
            note("nodes are nested more than 256 deep");
        }
        if (std::count(getNodePath().begin(), getNodePath().end(), &node) > 1) {
            note("a node lies below itself");
        }
        // Looking at a node once is enough, below however many parents it is.
        if (m_strDefect.empty() && m_setVisited.insert(&node).second) {
            traverse(node);
            if (m_strDefect.empty() && !hasFiniteBound(node)) {
                note("\"" + node.getName() + "\" is too large to have a bound");
            }
        }
    }

    /// Finite numbers may still be too large: a bound that overflows makes the whole picture vanish.
    static bool hasFiniteBound(osg::Node& node)
    {
        const osg::BoundingSphere& bound = node.getBound();
        if (bound.radius() < 0) {
            // Empty, or what a transform made of the overflow.
            const osg::Transform* transform = node.asTransform();
            return !transform || transform->getNumChildren() == 0 ||
                   !transform->getChild(0)->getBound().valid();
        }
        return std::isfinite(bound.center().length2()) && std::isfinite(bound.radius());
    }

    std::string m_strDefect;
    std::set<const osg::Node*> m_setVisited;
};

}  // namespace

std::string sceneDefect(osg::Node& scene)
{
    osg::ref_ptr<CSceneDefectVisitor> visitor = new CSceneDefectVisitor;
    scene.accept(*visitor);
    return visitor->defect();
}

}  // namespace KivCharacterization
