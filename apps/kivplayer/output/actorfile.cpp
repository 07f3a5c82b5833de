#include "apps/kivplayer/output/actorfile.h"

#include <osg/CopyOp>
#include <osg/Drawable>
#include <osg/MatrixTransform>
#include <osg/NodeVisitor>
#include <osg/StateSet>
#include <osgDB/Options>
#include <osgDB/Registry>

#include <ostream>

#include "KivCharacterization/naming.h"
#include "KivMemoryShare/scenecfgshare.h"
#include "apps/kivplayer/options/fileformats.h"
#include "apps/kivplayer/support/atomicfile.h"

namespace KivPlayer {

namespace {

/// Takes off what only means something to the player's shading or to a running program.
class Undress : public osg::NodeVisitor
{
public:
    Undress() : osg::NodeVisitor(TRAVERSE_ALL_CHILDREN) { setNodeMaskOverride(~0u); }

    void apply(osg::Node& node) override
    {
        node.setUpdateCallback(nullptr);
        node.setEventCallback(nullptr);
        node.setCullCallback(nullptr);
        node.setUserDataContainer(nullptr);
        node.setNodeMask(~0u);
        osg::StateSet::UniformList none;
        if (osg::StateSet* state = node.getStateSet())
            state->setUniformList(none);
        traverse(node);
    }
};

osg::ref_ptr<osg::Node> plainPiece(const osg::Node& piece)
{
    osg::ref_ptr<osg::Node> copy =
        osg::clone(&piece, osg::CopyOp(osg::CopyOp::DEEP_COPY_NODES | osg::CopyOp::DEEP_COPY_DRAWABLES |
                                       osg::CopyOp::DEEP_COPY_STATESETS));
    Undress undress;
    copy->accept(undress);
    return copy;
}

osg::ref_ptr<osg::MatrixTransform> plainTransform(const std::string& name, const osg::Matrixd& matrix)
{
    osg::ref_ptr<osg::MatrixTransform> transform = new osg::MatrixTransform(matrix);
    transform->setName(name);
    return transform;
}

bool addPlain(const osg::MatrixTransform& from, osg::Group& to);

/// The transform with the pieces and the joints below it; null where there are none.
osg::ref_ptr<osg::MatrixTransform> plainBranch(const osg::MatrixTransform& branch)
{
    const bool bone = dynamic_cast<const KivAnimation::Bone*>(&branch) != nullptr;
    const auto copy =
        plainTransform(bone ? withoutQualifier(branch.getName()) : branch.getName(), branch.getMatrix());
    const bool something = addPlain(branch, *copy);
    return bone || something ? copy : nullptr;
}

bool addPlain(const osg::MatrixTransform& from, osg::Group& to)
{
    for (unsigned i = 0; i < from.getNumChildren(); ++i) {
        const auto* child = dynamic_cast<const osg::MatrixTransform*>(from.getChild(i));
        if (!child)
            continue;
        osg::ref_ptr<osg::Node> copy;
        if (KivCharacterization::hasPiecePrefix(child->getName()))
            copy = plainPiece(*child);
        else
            copy = plainBranch(*child);
        if (copy)
            to.addChild(copy);
    }
    return to.getNumChildren() > 0;
}

osg::ref_ptr<osg::Group> plainActor(const LoadedActor& actor)
{
    osg::ref_ptr<osg::Group> group = new osg::Group;
    group->setName(actor.name);
    // Pieces are stretched onto their bones: their normals keep their length.
    group->getOrCreateStateSet()->setMode(GL_NORMALIZE, osg::StateAttribute::ON);
    for (const DressedActor::Joint& joint : actor.dressed.joints()) {
        const auto* parent = joint.bone->getParent(0)->asTransform();
        if (dynamic_cast<const KivAnimation::Bone*>(parent))
            continue;
        const osg::MatrixList above = joint.bone->getParent(0)->getWorldMatrices();
        const osg::ref_ptr<osg::MatrixTransform> root = plainBranch(*joint.bone);
        if (!above.empty())
            root->setMatrix(root->getMatrix() * above.front());
        group->addChild(root);
    }
    return group;
}

}  // namespace

osg::ref_ptr<osg::Group> plainActors(const Session& session)
{
    osg::ref_ptr<osg::Group> all = new osg::Group;
    all->setName("actors");
    for (const auto& [index, actor] : session.actors())
        all->addChild(plainActor(actor));
    return all;
}

std::string writeActors(const std::string& file, const Session& session, double seconds)
{
    osgDB::ReaderWriter* format = osgDB::Registry::instance()->getReaderWriterForExtension("osgb");
    if (!format)
        return "OpenSceneGraph's plugin for its own files is missing";
    auto* playback = KivMemoryShare::SceneCfgShare::instance()->getBaseAnimationManager();
    playback->pause();
    playback->setTime(seconds);
    playback->update(0.0);
    const osg::ref_ptr<osg::Group> actors = plainActors(session);
    const bool text = formatOf(file) == FileFormat::Osgt;
    const osg::ref_ptr<osgDB::Options> options =
        new osgDB::Options(text ? "fileType=Ascii" : "fileType=Binary");
    return writeAtomically(
        file, [&](std::ostream& stream) { return format->writeNode(*actors, stream, options).success(); });
}

}  // namespace KivPlayer
