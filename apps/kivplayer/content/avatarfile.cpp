#include "apps/kivplayer/content/avatarfile.h"

#include <osg/MatrixTransform>
#include <osg/NodeVisitor>
#include <osgDB/Registry>

#include <exception>

#include "KivCharacterization/naming.h"

namespace KivPlayer {

namespace {

class AvatarVisitor : public osg::NodeVisitor
{
public:
    explicit AvatarVisitor(AvatarFile& avatar) : osg::NodeVisitor(TRAVERSE_ALL_CHILDREN), m_avatar(avatar)
    {
        setNodeMaskOverride(~0u);
    }

    void apply(osg::MatrixTransform& node) override
    {
        if (KivCharacterization::isPieceName(node.getName()))
            return;
        std::vector<std::string> pieces;
        for (unsigned i = 0; i < node.getNumChildren(); ++i) {
            const auto* child = dynamic_cast<const osg::MatrixTransform*>(node.getChild(i));
            if (!child)
                continue;
            if (KivCharacterization::isPieceName(child->getName())) {
                pieces.push_back(child->getName());
                continue;
            }
            const osg::Vec3d offset = child->getMatrix().getTrans();
            m_avatar.segments[KivCharacterization::SegmentKey(node.getName(), child->getName())] = {
                offset.length(), offset};
        }
        m_avatar.joints[node.getName()] = pieces;
        traverse(node);
    }

private:
    AvatarFile& m_avatar;
};

}  // namespace

AvatarFile AvatarFile::read(const std::string& path)
{
    AvatarFile avatar;
    osgDB::ReaderWriter* reader = osgDB::Registry::instance()->getReaderWriterForExtension("ive");
    if (!reader)
        return avatar;
    try {
        osgDB::ReaderWriter::ReadResult result = reader->readNode(path, nullptr);
        if (osg::Node* node = result.getNode()) {
            AvatarVisitor visitor(avatar);
            node->accept(visitor);
        }
    } catch (const std::exception&) {
        // The module has said that it could not load the file.
    }
    return avatar;
}

}  // namespace KivPlayer
