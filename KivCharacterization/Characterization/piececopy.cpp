#include "KivCharacterization/Characterization/piececopy.h"

#include <cstddef>
#include <iterator>
#include <typeinfo>

namespace KivCharacterization {

namespace {

/// Hands out the vectors of an array, each put together from its components: those a compiler copies
/// several at once, vectors as they are one by one.
class ComponentIterator
{
public:
    using iterator_category = std::forward_iterator_tag;
    using value_type = osg::Vec3f;
    using difference_type = std::ptrdiff_t;
    using pointer = const osg::Vec3f*;
    using reference = osg::Vec3f;

    explicit ComponentIterator(const osg::Vec3f* at) : m_at(at) {}
    osg::Vec3f operator*() const { return {m_at->x(), m_at->y(), m_at->z()}; }
    ComponentIterator& operator++()
    {
        ++m_at;
        return *this;
    }
    bool operator==(const ComponentIterator& other) const { return m_at == other.m_at; }
    bool operator!=(const ComponentIterator& other) const { return !(*this == other); }

private:
    const osg::Vec3f* m_at;
};

/// An array that is its values, a name and how they are used.
bool isPlain(const osg::Array& array)
{
    return typeid(array) == typeid(osg::Vec3Array) && !array.getUserDataContainer() &&
           !array.getModifiedCallback();
}

osg::Array* copyPlain(const osg::Vec3Array& original)
{
    const osg::Vec3f* const values = original.asVector().data();
    osg::ref_ptr<osg::Vec3Array> copy =
        new osg::Vec3Array(ComponentIterator(values), ComponentIterator(values + original.size()));
    copy->setBinding(original.getBinding());
    copy->setNormalize(original.getNormalize());
    copy->setPreserveDataType(original.getPreserveDataType());
    copy->setDataVariance(original.getDataVariance());
    copy->setName(original.getName());
    return copy.release();
}

}  // namespace

osg::Array* PieceCopy::operator()(const osg::Array* array) const
{
    return array && isPlain(*array) ? copyPlain(static_cast<const osg::Vec3Array&>(*array)) : copyOf(array);
}

}  // namespace KivCharacterization
