#pragma once

#include <osg/Group>
#include <osg/MatrixTransform>
#include <osg/Switch>
#include <osg/ref_ptr>

#include <optional>
#include <string>
#include <vector>

#include "KivAnimation/bone.h"
#include "KivAnimation/skeleton.h"

namespace KivPlayer {

/// A mesh piece that hangs on a bone.
struct DressedPiece
{
    std::string name;                                 ///< the avatar piece's full name
    std::string joint;                                ///< the bone's, without qualifier
    osg::ref_ptr<const osg::MatrixTransform> holder;  ///< carries turn and stretch
};

/// What a host can see of one actor in the character scene: its skeleton and what the skeleton wears. Holds
/// the nodes alive; to be dropped before the scene is. Looked up and read between frames.
class DressedActor
{
public:
    struct Joint
    {
        std::string name;  ///< without qualifier
        osg::ref_ptr<KivAnimation::Bone> bone;
        bool isLeaf = false;  ///< no bone below it
    };

    /// @return nothing where the scene has no actor of that id.
    static std::optional<DressedActor> find(osg::Group& characterScene, const std::string& actorId);

    osg::Group& root() const { return *m_spRoot; }
    KivAnimation::Skeleton& skeleton() const { return *m_spSkeleton; }
    const std::vector<Joint>& joints() const { return m_joints; }  ///< parents first
    std::vector<std::string> jointNames() const;

    /// Where the joints are now, scene units, Z-up.
    std::vector<osg::Vec3d> positions() const;
    /// The same into a vector whose memory is reused, so that a frame allocates nothing.
    void readPositions(std::vector<osg::Vec3d>& positions) const;

    std::vector<DressedPiece> pieces() const;

    /// The switch above the name label; null where there is no label.
    osg::Switch* labelSwitch() const;

private:
    osg::ref_ptr<osg::Group> m_spRoot;
    osg::ref_ptr<KivAnimation::Skeleton> m_spSkeleton;
    std::vector<Joint> m_joints;
};

/// The text after the first '#', the whole name where there is none.
std::string withoutQualifier(const std::string& boneName);

}  // namespace KivPlayer
