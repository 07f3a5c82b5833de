#include "KivCharacterization/Characterization/characterbvh.h"

#include <gtest/gtest.h>
#include <osg/Geode>

#include <cmath>
#include <stdexcept>
#include <vector>

#include "KivCharacterization/Characterization/jointnaming.h"
#include "KivCharacterization/Characterization/kivpropsproertymanager.h"
#include "KivCharacterization/ipropspropertymodifynotify.h"
#include "KivManipulator/propsgeode.h"
#include "tests/support/figures.h"
#include "tests/support/freshhost.h"

namespace {

using namespace KivCharacterization;
using namespace KivTestSupport;
using KivErrorOperator::TavrinCommonErrorMsg;

const osg::Matrixd kUpAxis = osg::Matrixd::rotate(1.5707963705062866, osg::Vec3d(1, 0, 0));

/// Counts the flags that reach it.
class FlagObserver : public IPropsPropertyModifyNotify
{
public:
    int flags = 0;
    bool PropsVectorsChanged(const osg::Vec3f&, const osg::Vec3f&) override { return true; }
    bool PropsValuesChanged(const osg::Quat&, const osg::Vec3d&) override { return true; }
    bool PropsFlagChanged(bool) override
    {
        ++flags;
        return true;
    }
    bool IsPropsConcerned(const std::string&) override { return true; }
};

class Dressing : public FreshHost
{
protected:
    void SetUp() override
    {
        FreshHost::SetUp();
        avatarRoot = new osg::Group;
    }

    unsigned int dress(osg::Node* root)
    {
        avatar = analysed(avatarRoot.get());
        return AttachEntityToBvhSkeleton("7", root, record, avatar);
    }

    static std::string lastError() { return TavrinCommonErrorMsg::instance()->GetLastErrorMsg().message; }

    osg::ref_ptr<osg::Group> avatarRoot;
    CommonTypeDef::SIveInfo avatar;
    SFittingRecord record;
};

TEST_F(Dressing, refusesARootThatIsNoGroup)
{
    osg::ref_ptr<osg::Node> node = new osg::Node;
    EXPECT_EQ(dress(node.get()), 0u);
    EXPECT_EQ(
        lastError(),
        "File Name: KivCharacterization/Characterization/characterbvh\t Line Number: 25\"node invalid !\"");
    EXPECT_EQ(dress(nullptr), 0u);
}

TEST_F(Dressing, refusesARootWithoutASkeletonAndChangesNothing)
{
    osg::ref_ptr<osg::Group> group = new osg::Group;
    group->addChild(bone("Hips"));
    group->addChild(new osg::Node);
    EXPECT_EQ(dress(group.get()), 0u);
    EXPECT_EQ(lastError(),
              "File Name: KivCharacterization/Characterization/characterbvh\t Line Number: "
              "37\"can not find skeleton node !\"");
    EXPECT_TRUE(record.jointMap.empty());
}

TEST_F(Dressing, takesTheFirstSkeletonInPreOrder)
{
    const auto hips = avatarNode("Hips");
    hips->addChild(avatarPiece("Joint:Hips$"));
    avatarRoot->addChild(hips);
    const auto first = bone("7#Hips");
    const auto second = bone("7#Hips");
    osg::ref_ptr<osg::Group> root = new osg::Group;
    osg::ref_ptr<osg::Group> deeper = new osg::Group;
    deeper->addChild(skeletonOf(first.get()));
    root->addChild(deeper);
    root->addChild(skeletonOf(second.get()));
    EXPECT_EQ(dress(root.get()), 1u);
    EXPECT_EQ(first->getNumChildren(), 1u);
    EXPECT_EQ(second->getNumChildren(), 0u);
}

TEST_F(Dressing, leavesJointsWithoutAvatarNodeBareAndIgnoresAvatarNodesWithoutJoint)
{
    const auto spine = avatarNode("Spine");
    spine->addChild(avatarPiece("Joint:Spine$"));
    avatarRoot->addChild(spine);
    const auto hips = bone("Hips");
    EXPECT_EQ(dress(skeletonOf(hips.get()).get()), 1u);
    EXPECT_EQ(hips->getNumChildren(), 0u);
}

TEST_F(Dressing, findsEveryCommonNameAmongOthersOfEitherSide)
{
    for (const char* name : {"A", "C", "D", "F", "H"}) {
        const auto node = avatarNode(name);
        node->addChild(avatarPiece(std::string("Joint:") + name + "$"));
        avatarRoot->addChild(node);
    }
    const auto hips = bone("7#B");
    for (const char* name : {"7#H", "7#C", "7#E", "7#F", "7#I"}) {
        hips->addChild(bone(name));
    }
    EXPECT_EQ(dress(skeletonOf(hips.get()).get()), 1u);
    for (const char* name : {"C", "F", "H"}) {
        EXPECT_TRUE(findPiece(*record.jointMap.at(name), std::string("Joint:") + name + "$").copy) << name;
    }
    for (const char* name : {"E", "I"}) {
        EXPECT_EQ(record.jointMap.at(name)->getNumChildren(), 0u) << name;
    }
}

TEST_F(Dressing, skipsPieceWhenItsNameHasNoDollar)
{
    const auto head = avatarNode("Head");
    head->addChild(avatarPiece("Joint:Head"));
    head->addChild(avatarPiece("Joint:Head#Inner"));
    avatarRoot->addChild(head);
    const auto headBone = bone("Head");
    EXPECT_EQ(dress(skeletonOf(headBone.get()).get()), 1u);
    EXPECT_EQ(headBone->getNumChildren(), 0u);
    EXPECT_TRUE(TavrinCommonErrorMsg::instance()->history().empty());
}

/// A piece of a class of its own, whose copies are no transforms.
class UncopiedPiece : public osg::MatrixTransform
{
public:
    osg::Object* clone(const osg::CopyOp&) const override { return m_copy ? new osg::Group : nullptr; }
    explicit UncopiedPiece(bool copy, const std::string& name = "Joint:Head$") : m_copy(copy)
    {
        setName(name);
    }

private:
    bool m_copy;
};

TEST_F(Dressing, skipsAPieceWhoseCopyIsNoTransform)
{
    const auto head = avatarNode("Head");
    head->addChild(new UncopiedPiece(false));
    head->addChild(new UncopiedPiece(true));
    head->addChild(avatarPiece("Joint:Head#Hat$"));
    avatarRoot->addChild(head);
    const auto headBone = bone("Head");
    EXPECT_EQ(dress(skeletonOf(headBone.get()).get()), 1u);
    ASSERT_EQ(headBone->getNumChildren(), 1u);
    EXPECT_TRUE(findPiece(*headBone, "Joint:Head#Hat$").copy);
}

TEST_F(Dressing, hangsAnUntaggedPieceWithTheAxisConversionOnly)
{
    const auto head = avatarNode("Head", osg::Vec3d(0, 158, 0));
    const osg::Matrixd own = osg::Matrixd::translate(1, 2, 3);
    head->addChild(avatarPiece("Joint:Head$", own));
    avatarRoot->addChild(head);
    const auto headBone = bone("7#Head", osg::Vec3d(0, 0, 12));
    ASSERT_EQ(dress(skeletonOf(headBone.get()).get()), 1u);

    const AttachedPiece piece = findPiece(*headBone, "Joint:Head$");
    ASSERT_TRUE(piece.copy);
    EXPECT_TRUE(piece.wrapper->getMatrix().isIdentity());
    EXPECT_EQ(piece.holder->getMatrix(), kUpAxis);
    EXPECT_EQ(piece.copy->getMatrix(), own);
    EXPECT_EQ(piece.holder->getStateSet()->getMode(GL_NORMALIZE), osg::StateAttribute::ON);
    EXPECT_EQ(piece.wrapper->getNumChildren(), 1u);
}

TEST_F(Dressing, givesEveryHolderAStateOfItsOwn)
{
    const auto head = avatarNode("Head");
    head->addChild(avatarPiece("Joint:Head$"));
    head->addChild(avatarPiece("Joint:Head#1$"));
    avatarRoot->addChild(head);
    const auto headBone = bone("7#Head");
    ASSERT_EQ(dress(skeletonOf(headBone.get()).get()), 1u);
    const osg::StateSet* ofOne = findPiece(*headBone, "Joint:Head$").holder->getStateSet();
    const osg::StateSet* ofOther = findPiece(*headBone, "Joint:Head#1$").holder->getStateSet();
    ASSERT_TRUE(ofOne && ofOther);
    EXPECT_NE(ofOne, ofOther);
}

/// A piece whose copying fails.
class UncopyablePiece : public osg::MatrixTransform
{
public:
    explicit UncopyablePiece(const std::string& name) { setName(name); }
    osg::Object* clone(const osg::CopyOp&) const override { throw std::runtime_error("no copy"); }
};

TEST_F(Dressing, leavesNothingHalfMadeWhereAPieceCannotBeCopied)
{
    const auto arm = avatarNode("Arm");
    arm->addChild(avatarPiece("Joint:Arm$"));
    arm->addChild(new UncopyablePiece("Joint:Arm#1$"));
    avatarRoot->addChild(arm);
    const auto hand = avatarNode("Hand");
    hand->addChild(avatarPiece("Joint:Hand$"));
    avatarRoot->addChild(hand);
    const auto armBone = bone("7#Arm");
    const auto handBone = bone("7#Hand");
    armBone->addChild(handBone);
    EXPECT_THROW(dress(skeletonOf(armBone.get()).get()), std::runtime_error);
    // What was made before is whole; of what comes after there is nothing.
    ASSERT_EQ(armBone->getNumChildren(), 2u);
    EXPECT_TRUE(findPiece(*armBone, "Joint:Arm$").copy);
    EXPECT_EQ(handBone->getNumChildren(), 0u);
}

/// A piece that writes down when it is copied.
class LoggingPiece : public osg::MatrixTransform
{
public:
    LoggingPiece(const std::string& name, std::vector<std::string>& log) : m_pLog(&log) { setName(name); }
    osg::Object* clone(const osg::CopyOp& copyop) const override
    {
        m_pLog->push_back(getName());
        return osg::MatrixTransform::clone(copyop);
    }

private:
    std::vector<std::string>* m_pLog;
};

TEST_F(Dressing, goesByTheNamesOfTheJointsInAscendingOrder)
{
    std::vector<std::string> copied;
    const auto hips = bone("7#C");
    osg::ref_ptr<KivAnimation::Bone> last = hips;
    for (const char* name : {"C", "A", "B"}) {
        const auto node = avatarNode(name);
        node->addChild(new LoggingPiece(std::string("Joint:") + name + "$", copied));
        avatarRoot->addChild(node);
        if (*name != 'C') {
            const auto next = bone(std::string("7#") + name);
            last->addChild(next);
            last = next;
        }
    }
    ASSERT_EQ(dress(skeletonOf(hips.get()).get()), 1u);
    EXPECT_EQ(copied, (std::vector<std::string>{"Joint:A$", "Joint:B$", "Joint:C$"}));
}

TEST_F(Dressing, takesARootThatIsTheSkeleton)
{
    const auto head = avatarNode("Head");
    head->addChild(avatarPiece("Joint:Head$"));
    avatarRoot->addChild(head);
    const auto headBone = bone("7#Head");
    const osg::ref_ptr<KivAnimation::Skeleton> skeleton = new KivAnimation::Skeleton;
    skeleton->addChild(headBone);
    EXPECT_EQ(dress(skeleton.get()), 1u);
    EXPECT_TRUE(findPiece(*headBone, "Joint:Head$").copy);
}

TEST_F(Dressing, hangsThePiecesOfAJointInTheOrderOfTheAvatar)
{
    const auto head = avatarNode("Head");
    const std::vector<std::string> names = {"Joint:Head#2$", "Joint:Head$", "Joint:Head#1$"};
    for (const std::string& name : names) {
        head->addChild(avatarPiece(name));
    }
    avatarRoot->addChild(head);
    const auto headBone = bone("7#Head");
    ASSERT_EQ(dress(skeletonOf(headBone.get()).get()), 1u);
    ASSERT_EQ(headBone->getNumChildren(), 3u);
    for (unsigned int i = 0; i < 3; ++i) {
        const osg::Group* holder = headBone->getChild(i)->asGroup()->getChild(0)->asGroup();
        EXPECT_EQ(holder->getChild(0)->getName(), names[i]);
    }
}

TEST_F(Dressing, copiesPiecesAllTheWayDown)
{
    const auto head = avatarNode("Head");
    const auto piece = avatarPiece("Joint:Head$");
    head->addChild(piece);
    avatarRoot->addChild(head);
    const auto headBone = bone("Head");
    dress(skeletonOf(headBone.get()).get());
    const AttachedPiece attached = findPiece(*headBone, "Joint:Head$");
    EXPECT_NE(attached.copy.get(), piece.get());
    EXPECT_NE(attached.copy->getChild(0), piece->getChild(0));
    EXPECT_EQ(piece->getNumParents(), 1u);
}

TEST_F(Dressing, turnsStretchesAndCentresTheInnerPieceOfASegment)
{
    const auto leftUpLeg = avatarNode("LeftUpLeg");
    leftUpLeg->addChild(avatarPiece("Joint:LeftUpLeg&LeftLeg#Inner$", osg::Matrixd::translate(50, 50, 50)));
    leftUpLeg->addChild(avatarNode("LeftLeg", osg::Vec3d(0, -40, 0)));
    avatarRoot->addChild(leftUpLeg);

    const osg::Vec3d segment(0, 30, -40);
    const auto upLegBone = bone("7#LeftUpLeg");
    upLegBone->addChild(bone("7#LeftLeg", segment));
    ASSERT_EQ(dress(skeletonOf(upLegBone.get()).get()), 1u);

    const AttachedPiece piece = findPiece(*upLegBone, "Joint:LeftUpLeg&LeftLeg#Inner$");
    ASSERT_TRUE(piece.copy);
    EXPECT_TRUE(piece.copy->getMatrix().isIdentity());
    const osg::Matrixd& matrix = piece.holder->getMatrix();
    // The piece's middle lies in the segment's middle, its ends at the joints.
    EXPECT_NEAR((osg::Vec3d(0, 0, 0) * matrix - segment * 0.5).length(), 0.0, 1e-4);
    EXPECT_NEAR((osg::Vec3d(0, -20, 0) * matrix - segment).length(), 0.0, 1e-4);
    EXPECT_NEAR((osg::Vec3d(0, 20, 0) * matrix).length(), 0.0, 1e-4);
    const osg::Matrixd expected =
        kUpAxis * osg::Matrixd::rotate(osg::Vec3f(0, 0, -40), osg::Vec3f(0, 30, -40)) *
        osg::Matrixd::scale(1.25, 1.25, 1.25) * osg::Matrixd::translate(segment * 0.5);
    for (int i = 0; i < 16; ++i) {
        EXPECT_NEAR(matrix.ptr()[i], expected.ptr()[i], 1e-6);
    }
}

TEST_F(Dressing, treatsTheOuterPieceOfASegmentLikeTheInnerOne)
{
    const auto arm = avatarNode("LeftArm");
    arm->addChild(avatarPiece("Joint:LeftArm&LeftForeArm#Inner$"));
    arm->addChild(avatarPiece("Joint:LeftArm&LeftForeArm#Outer$"));
    arm->addChild(avatarNode("LeftForeArm", osg::Vec3d(28, 0, 0)));
    avatarRoot->addChild(arm);
    const auto armBone = bone("LeftArm");
    armBone->addChild(bone("LeftForeArm", osg::Vec3d(14, 3, 1)));
    dress(skeletonOf(armBone.get()).get());
    EXPECT_EQ(findPiece(*armBone, "Joint:LeftArm&LeftForeArm#Inner$").holder->getMatrix(),
              findPiece(*armBone, "Joint:LeftArm&LeftForeArm#Outer$").holder->getMatrix());
}

TEST_F(Dressing, onlyConvertsASegmentPieceWhoseSegmentTheSkeletonLacks)
{
    const auto arm = avatarNode("LeftArm");
    arm->addChild(avatarPiece("Joint:LeftArm&LeftForeArm#Inner$", osg::Matrixd::translate(5, 5, 5)));
    arm->addChild(avatarNode("LeftForeArm", osg::Vec3d(28, 0, 0)));
    avatarRoot->addChild(arm);
    const auto armBone = bone("LeftArm");
    dress(skeletonOf(armBone.get()).get());
    const AttachedPiece piece = findPiece(*armBone, "Joint:LeftArm&LeftForeArm#Inner$");
    ASSERT_TRUE(piece.copy);
    EXPECT_EQ(piece.holder->getMatrix(), kUpAxis);
    EXPECT_TRUE(piece.copy->getMatrix().isIdentity());
}

TEST_F(Dressing, onlyConvertsASegmentPieceWhoseSegmentTheAvatarLacks)
{
    const auto arm = avatarNode("LeftArm");
    arm->addChild(avatarPiece("Joint:LeftArm&LeftForeArm#Inner$", osg::Matrixd::translate(5, 5, 5)));
    avatarRoot->addChild(arm);
    const auto armBone = bone("LeftArm");
    armBone->addChild(bone("LeftForeArm", osg::Vec3d(14, 3, 1)));
    dress(skeletonOf(armBone.get()).get());
    const AttachedPiece piece = findPiece(*armBone, "Joint:LeftArm&LeftForeArm#Inner$");
    ASSERT_TRUE(piece.copy);
    EXPECT_EQ(piece.holder->getMatrix(), kUpAxis);
    EXPECT_TRUE(piece.copy->getMatrix().isIdentity());
}

TEST_F(Dressing, appliesASegmentOfZeroLengthAsItIsAndDoesNotCrash)
{
    const auto arm = avatarNode("LeftArm");
    arm->addChild(avatarPiece("Joint:LeftArm&LeftForeArm#Inner$"));
    arm->addChild(avatarNode("LeftForeArm", osg::Vec3d(28, 0, 0)));
    avatarRoot->addChild(arm);
    const auto armBone = bone("LeftArm");
    armBone->addChild(bone("LeftForeArm"));
    EXPECT_EQ(dress(skeletonOf(armBone.get()).get()), 1u);
    EXPECT_TRUE(findPiece(*armBone, "Joint:LeftArm&LeftForeArm#Inner$").copy);
}

/// Hips with two legs, a torso piece and a hand, whose proportions differ from the avatar's.
class Proportions : public Dressing
{
protected:
    void SetUp() override
    {
        Dressing::SetUp();
        const auto hips = avatarNode("Hips");
        hips->addChild(avatarPiece("Joint:Hips&Spine$"));
        hips->addChild(avatarPiece("Joint:Hips$"));
        hips->addChild(avatarNode("LeftUpLeg", osg::Vec3d(10, 0, 0)));
        hips->addChild(avatarNode("RightUpLeg", osg::Vec3d(-10, 0, 0)));
        const auto leftHand = avatarNode("LeftHand");
        addHandPieces(*leftHand);
        const auto metacarpal = avatarNode("LeftInHandRing");
        metacarpal->addChild(avatarNode("LeftHandRing1", osg::Vec3d(5, 0, 0)));
        leftHand->addChild(metacarpal);
        const auto rightHand = avatarNode("RightHand");
        addHandPieces(*rightHand);
        hips->addChild(leftHand);
        hips->addChild(rightHand);
        avatarRoot->addChild(hips);
    }

    /// The six numbered pieces that are sized with the hand, and a seventh, which is not.
    static void addHandPieces(osg::MatrixTransform& hand)
    {
        const std::string name = "Joint:" + hand.getName();
        hand.addChild(avatarPiece(name + "$"));
        for (char number = '1'; number <= '7'; ++number) {
            hand.addChild(avatarPiece(name + "#" + number + "$"));
        }
    }

    struct Figure
    {
        osg::ref_ptr<osg::Group> root;
        osg::ref_ptr<KivAnimation::Bone> hips, leftHand, rightHand;

        double factor(const KivAnimation::Bone& at, const std::string& piece) const
        {
            return findPiece(at, piece).holder->getMatrix().getScale().x();
        }
    };

    static Figure figure(double hipWidth, double metacarpalLength)
    {
        Figure made;
        made.hips = bone("Hips");
        made.hips->addChild(bone("LeftUpLeg", osg::Vec3d(hipWidth / 2, 0, 0)));
        made.hips->addChild(bone("RightUpLeg", osg::Vec3d(-hipWidth / 2, 0, 0)));
        made.leftHand = bone("LeftHand");
        const auto metacarpal = bone("LeftInHandRing");
        if (metacarpalLength > 0) {
            metacarpal->addChild(bone("LeftHandRing1", osg::Vec3d(metacarpalLength, 0, 0)));
        }
        made.leftHand->addChild(metacarpal);
        made.rightHand = bone("RightHand");
        made.hips->addChild(made.leftHand);
        made.hips->addChild(made.rightHand);
        made.root = skeletonOf(made.hips.get());
        return made;
    }
};

TEST_F(Proportions, scaleTheTorsoByHipWidthAndBothHandsByTheLeftRingMetacarpal)
{
    const Figure made = figure(30, 2);
    ASSERT_EQ(dress(made.root.get()), 1u);
    EXPECT_NEAR(made.factor(*made.hips, "Joint:Hips&Spine$"), 1.5, 1e-6);
    EXPECT_NEAR(made.factor(*made.hips, "Joint:Hips$"), 1.0, 1e-6);
    EXPECT_NEAR(made.factor(*made.leftHand, "Joint:LeftHand$"), 0.4, 1e-6);
    EXPECT_NEAR(made.factor(*made.rightHand, "Joint:RightHand$"), 0.4, 1e-6);
    for (char number = '1'; number <= '7'; ++number) {
        const std::string tag = std::string("#") + number + "$";
        const double expected = number <= '6' ? 0.4 : 1.0;
        EXPECT_NEAR(made.factor(*made.leftHand, "Joint:LeftHand" + tag), expected, 1e-6) << tag;
        EXPECT_NEAR(made.factor(*made.rightHand, "Joint:RightHand" + tag), expected, 1e-6) << tag;
    }
}

TEST_F(Proportions, applyAMissingReferenceSegmentAsZero)
{
    const Figure made = figure(30, 0);
    ASSERT_EQ(dress(made.root.get()), 1u);
    EXPECT_EQ(findPiece(*made.leftHand, "Joint:LeftHand$").holder->getMatrix()(0, 0), 0.0);
}

TEST_F(Proportions, doNotMakeUpASegmentThatAPieceFollows)
{
    const Figure made = figure(30, 2);
    made.hips->removeChild(0, 1);
    const std::string name = "Joint:Hips&LeftUpLeg#Inner$";
    avatarRoot->getChild(0)->asGroup()->addChild(avatarPiece(name));
    ASSERT_EQ(dress(made.root.get()), 1u);
    EXPECT_EQ(record.segmentMap.count("Hips&LeftUpLeg"), 1u);
    EXPECT_EQ(findPiece(*made.hips, name).holder->getMatrix(), kUpAxis);
}

/// The holder of the piece that a bone's child is the wrapper of.
const osg::MatrixTransform& holderBelow(const osg::Group& bone, unsigned int child)
{
    return *bone.getChild(child)->asGroup()->getChild(0)->asTransform()->asMatrixTransform();
}

TEST_F(Proportions, scaleTheLastOfTwoPiecesWithOneName)
{
    const Figure made = figure(30, 2);
    const unsigned int wrappers = made.hips->getNumChildren();
    avatarRoot->getChild(0)->asGroup()->addChild(avatarPiece("Joint:Hips&Spine$"));
    ASSERT_EQ(dress(made.root.get()), 1u);
    EXPECT_EQ(holderBelow(*made.hips, wrappers).getMatrix(), kUpAxis);
    EXPECT_NEAR(holderBelow(*made.hips, wrappers + 2).getMatrix()(0, 0), 1.5, 1e-6);
}

TEST_F(Proportions, areThoseOfTheTorsoAndTheHandsWhateverElseTheTableHas)
{
    SpecialJointTable::instance().find("Joint:Hips$");
    const Figure made = figure(30, 2);
    ASSERT_EQ(dress(made.root.get()), 1u);
    EXPECT_EQ(findPiece(*made.hips, "Joint:Hips$").holder->getMatrix(), kUpAxis);
    EXPECT_EQ(SpecialJointTable::instance().find("Joint:Hips$"),
              findPiece(*made.hips, "Joint:Hips$").holder.get());
}

TEST_F(Proportions, passByAPieceThatCannotBeCopied)
{
    avatarRoot->getChild(0)->asGroup()->addChild(new UncopiedPiece(true, "Joint:Hips&Spine$"));
    const Figure made = figure(30, 2);
    ASSERT_EQ(dress(made.root.get()), 1u);
    EXPECT_NEAR(made.factor(*made.hips, "Joint:Hips&Spine$"), 1.5, 1e-6);
    EXPECT_EQ(SpecialJointTable::instance().find("Joint:Hips&Spine$"),
              findPiece(*made.hips, "Joint:Hips&Spine$").holder.get());
}

TEST_F(Proportions, ofASecondFigureLeaveTheFirstOneAlone)
{
    const Figure first = figure(30, 2);
    ASSERT_EQ(dress(first.root.get()), 1u);
    // The second has no hands and no torso of its own: the table still shows the first one's.
    const auto bare = bone("Neck");
    SFittingRecord secondRecord;
    ASSERT_EQ(AttachEntityToBvhSkeleton("8", skeletonOf(bare.get()).get(), secondRecord, avatar), 1u);
    EXPECT_NEAR(first.factor(*first.hips, "Joint:Hips&Spine$"), 1.5, 1e-6);
    EXPECT_NEAR(first.factor(*first.leftHand, "Joint:LeftHand$"), 0.4, 1e-6);
}

TEST_F(Proportions, leaveTheTableAtTheLastFittedActorsHolders)
{
    const Figure first = figure(30, 2);
    dress(first.root.get());
    const Figure second = figure(20, 5);
    SFittingRecord secondRecord;
    AttachEntityToBvhSkeleton("8", second.root.get(), secondRecord, avatar);
    EXPECT_EQ(SpecialJointTable::instance().find("Joint:Hips&Spine$"),
              findPiece(*second.hips, "Joint:Hips&Spine$").holder.get());
}

/// A hand that carries a props of two pieces.
class DressingProps : public Dressing
{
protected:
    void SetUp() override
    {
        Dressing::SetUp();
        const auto props = avatarNode("LeftProps");
        props->addChild(avatarPiece("Joint:LeftProps$"));
        props->addChild(avatarPiece("Joint:LeftProps#2$"));
        avatarRoot->addChild(props);
        propsBone = bone("7#LeftProps", osg::Vec3d(1.5, -2.5, 3.5));
        propsBone->addChild(bone("7#LeftPropsEnd", osg::Vec3d(5, 0, 0)));
    }

    osg::ref_ptr<KivAnimation::Bone> propsBone;
};

TEST_F(DressingProps, makeOneGeodeAPieceAndRecordTheLast)
{
    const auto root = skeletonOf(propsBone.get());
    ASSERT_EQ(dress(root.get()), 1u);
    // The end bone, then a wrapper for each piece.
    ASSERT_EQ(propsBone->getNumChildren(), 3u);
    osg::Group* wrapper = propsBone->getChild(2)->asGroup();
    ASSERT_EQ(wrapper->getNumChildren(), 2u);
    ASSERT_EQ(record.propsMap.size(), 1u);
    EXPECT_EQ(record.propsMap.at("LeftProps").get(), wrapper->getChild(1));
    EXPECT_NE(propsBone->getChild(1)->asGroup()->getChild(1), wrapper->getChild(1));
}

TEST_F(DressingProps, putTheTransformFirstAndTheGeodeBesideIt)
{
    const auto root = skeletonOf(propsBone.get());
    dress(root.get());
    const AttachedPiece piece = findPiece(*propsBone, "Joint:LeftProps$");
    ASSERT_TRUE(piece.copy);
    EXPECT_EQ(piece.copy->getNodeMask(), 4u);
    EXPECT_EQ(piece.holder->getParent(0), piece.wrapper->getChild(0));
    auto* geode = dynamic_cast<KivManipulator::PropsGeode*>(piece.wrapper->getChild(1));
    ASSERT_TRUE(geode);
    EXPECT_EQ(geode->getActorName(), "7");
    EXPECT_EQ(geode->getPropsPosition(), osg::Vec3f(1.5f, -2.5f, 3.5f));
    ASSERT_TRUE(geode->getNotify());
    const AttachedPiece second = findPiece(*propsBone, "Joint:LeftProps#2$");
    const auto* other = dynamic_cast<KivManipulator::PropsGeode*>(second.wrapper->getChild(1));
    ASSERT_TRUE(other);
    EXPECT_NE(geode->getNotify(), other->getNotify());
    // It has draggers to show.
    EXPECT_TRUE(geode->ShowPropsDragger(true));
    EXPECT_TRUE(geode->isPropsDraggerShown());
    // An untagged piece is not tied to its bone.
    EXPECT_EQ(geode->getInitialBone(), nullptr);
    EXPECT_EQ(geode->getPropsName(), "7#LeftProps");
}

TEST_F(DressingProps, tieTheSegmentPieceOfAPropsToItsBoneAndLeaveItAsModelled)
{
    const auto props = avatarNode("RightProps");
    props->addChild(avatarPiece("Joint:RightProps&RightPropsTip#Inner$"));
    props->addChild(avatarNode("RightPropsTip", osg::Vec3d(0, 10, 0)));
    avatarRoot->addChild(props);
    const auto rightBone = bone("7#RightProps", osg::Vec3d(4, 5, 6));
    rightBone->addChild(bone("7#RightPropsTip", osg::Vec3d(0, 0, 20)));
    const auto root = skeletonOf(rightBone.get());
    ASSERT_EQ(dress(root.get()), 1u);
    const AttachedPiece piece = findPiece(*rightBone, "Joint:RightProps&RightPropsTip#Inner$");
    ASSERT_TRUE(piece.copy);
    EXPECT_TRUE(piece.holder->getMatrix().isIdentity());
    const auto& geode = record.propsMap.at("RightProps");
    EXPECT_EQ(geode->getInitialBone(), rightBone.get());
    EXPECT_EQ(geode->getInitialBoneMatrix(), rightBone->getInitialMatrix());
    EXPECT_TRUE(geode->getInitialJointMatrix().isIdentity());
}

TEST_F(DressingProps, areNotTiedToABoneForASegmentThatASideLacks)
{
    propsBone->addChild(bone("7#LeftPropsTip", osg::Vec3d(0, 0, 20)));
    avatarRoot->getChild(0)->asGroup()->addChild(avatarPiece("Joint:LeftProps&LeftPropsTip#Inner$"));
    const auto root = skeletonOf(propsBone.get());
    ASSERT_EQ(dress(root.get()), 1u);
    const AttachedPiece piece = findPiece(*propsBone, "Joint:LeftProps&LeftPropsTip#Inner$");
    EXPECT_EQ(piece.holder->getMatrix(), kUpAxis);
    EXPECT_EQ(record.propsMap.at("LeftProps")->getInitialBone(), nullptr);
}

TEST_F(DressingProps, outliveTheirLinksOnlyInTheManager)
{
    auto root = skeletonOf(propsBone.get());
    dress(root.get());
    KivManipulator::IPropsGeodePropertyNotify* link = record.propsMap.at("LeftProps")->getNotify();
    root = nullptr;
    propsBone = nullptr;
    EXPECT_FALSE(record.propsMap.at("LeftProps").valid());
    // The actor is gone; its link still reaches whoever listens.
    FlagObserver observer;
    KivPropsProertyManager::Instance()->RegistNotify(&observer);
    EXPECT_TRUE(link->PropsFlagChanged("7#LeftProps", true));
    EXPECT_EQ(observer.flags, 1);
    KivPropsProertyManager::Instance()->UnRegistNotify(&observer);
}

TEST_F(DressingProps, passByTheEndOfAProps)
{
    const auto end = avatarNode("LeftPropsEnd");
    end->addChild(avatarPiece("Joint:LeftPropsEnd$"));
    avatarRoot->addChild(end);
    const auto root = skeletonOf(propsBone.get());
    dress(root.get());
    EXPECT_EQ(record.propsMap.count("LeftPropsEnd"), 0u);
}

}  // namespace
