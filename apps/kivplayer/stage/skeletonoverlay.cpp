#include "apps/kivplayer/stage/skeletonoverlay.h"

#include <osg/ColorMask>
#include <osg/CullFace>
#include <osg/Depth>
#include <osg/NodeVisitor>
#include <osg/Program>
#include <osg/Transform>
#include <osg/observer_ptr>

#include <algorithm>
#include <string>
#include <vector>

#include "KivAnimation/bone.h"
#include "KivAnimation/skeleton.h"
#include "KivCharacterization/naming.h"
#include "apps/kivplayer/content/dressedactor.h"
#include "apps/kivplayer/stage/bonemesh.h"

namespace KivPlayer {

namespace {

const osg::Vec4ub kMiddle(98, 200, 112, 255);
const osg::Vec4ub kLeft(74, 163, 240, 255);
const osg::Vec4ub kRight(255, 146, 56, 255);

/// Widths as shares of the bone's own length and, at most, of the figure's longest bone.
constexpr double kSlimness = 0.16;
constexpr double kThickest = 0.075;
constexpr double kDot = 0.42;  ///< a dot's radius as a share of the widest bone at its joint
// After the figures and their translucent overlays, before what bodies hide of their markers.
constexpr int kClearing = 11;
constexpr int kDrawing = 12;

// Lit from the eye, so that every bone shows its edges whatever the light of the stage.
const char* const kVertex = R"(#version 120
varying vec3 normal;
void main()
{
    normal = gl_NormalMatrix * gl_Normal;
    gl_FrontColor = gl_Color;
    gl_Position = gl_ModelViewProjectionMatrix * gl_Vertex;
}
)";
const char* const kFragment = R"(#version 120
varying vec3 normal;
void main()
{
    float light = 0.52 + 0.52 * max(dot(normalize(normal), normalize(vec3(-0.35, 0.55, 0.76))), 0.0);
    gl_FragColor = vec4(gl_Color.rgb * light, 1.0);
}
)";

/// One joint of a figure, in scene space.
struct DrawnJoint
{
    osg::Vec3d position;
    int parent = -1;
    double width = 0.0;   ///< of the bone that ends here
    double widest = 0.0;  ///< of all bones that meet here
    osg::Vec4ub colour;
    bool isEnd = true;
};

const osg::Vec4ub& colourOf(const std::string& bone)
{
    const std::string joint = withoutQualifier(bone);
    if (joint.compare(0, 4, "Left") == 0)
        return kLeft;
    return joint.compare(0, 5, "Right") == 0 ? kRight : kMiddle;
}

void collectJoints(const osg::Group& parent, int above, const osg::Matrixd& toWorld,
                   std::vector<DrawnJoint>& joints)
{
    for (unsigned i = 0; i < parent.getNumChildren(); ++i) {
        const auto* bone = dynamic_cast<const KivAnimation::Bone*>(parent.getChild(i));
        // A joint that carries a prop is no part of the body.
        if (!bone || bone->getName().find(KivCharacterization::kPropsWord) != std::string::npos)
            continue;
        const auto own = static_cast<int>(joints.size());
        joints.push_back({bone->getMatrixInSkeletonSpace().getTrans() * toWorld, above, 0.0, 0.0,
                          colourOf(bone->getName()), true});
        if (above >= 0)
            joints[static_cast<std::size_t>(above)].isEnd = false;
        collectJoints(*bone, own, toWorld, joints);
    }
}

void measure(std::vector<DrawnJoint>& joints)
{
    double longest = 0.0;
    for (const DrawnJoint& joint : joints)
        if (joint.parent >= 0)
            longest = std::max(
                longest, (joint.position - joints[static_cast<std::size_t>(joint.parent)].position).length());
    for (DrawnJoint& joint : joints) {
        if (joint.parent < 0)
            continue;
        DrawnJoint& above = joints[static_cast<std::size_t>(joint.parent)];
        joint.width = std::min(kSlimness * (joint.position - above.position).length(), kThickest * longest);
        joint.widest = std::max(joint.widest, joint.width);
        above.widest = std::max(above.widest, joint.width);
    }
}

/// Finds the skeletons that can be seen and adds their bones.
class SkeletonPainter : public osg::NodeVisitor
{
public:
    explicit SkeletonPainter(BoneMesh& mesh) : osg::NodeVisitor(TRAVERSE_ACTIVE_CHILDREN), m_mesh(mesh) {}

    void apply(osg::Node& node) override
    {
        if (const auto* skeleton = dynamic_cast<const KivAnimation::Skeleton*>(&node))
            paint(*skeleton, osg::computeLocalToWorld(getNodePath()));
        else
            traverse(node);
    }

private:
    void paint(const osg::Group& skeleton, const osg::Matrixd& toWorld)
    {
        m_joints.clear();
        collectJoints(skeleton, -1, toWorld, m_joints);
        measure(m_joints);
        for (const DrawnJoint& joint : m_joints) {
            if (joint.parent >= 0)
                m_mesh.addBone(m_joints[static_cast<std::size_t>(joint.parent)].position, joint.position,
                               joint.width, joint.colour);
            if (!joint.isEnd)
                m_mesh.addDot(joint.position, kDot * joint.widest, joint.colour);
        }
    }

    BoneMesh& m_mesh;
    std::vector<DrawnJoint> m_joints;
};

osg::ref_ptr<osg::Program> makeProgram()
{
    osg::ref_ptr<osg::Program> program = new osg::Program;
    program->addShader(new osg::Shader(osg::Shader::VERTEX, kVertex));
    program->addShader(new osg::Shader(osg::Shader::FRAGMENT, kFragment));
    return program;
}

osg::ref_ptr<osg::Group> pass(osg::Geometry* bones, osg::Depth* depth, int bin)
{
    osg::ref_ptr<osg::Group> group = new osg::Group;
    group->addChild(bones);
    group->getOrCreateStateSet()->setAttributeAndModes(depth);
    group->getOrCreateStateSet()->setRenderBinDetails(bin, "RenderBin");
    return group;
}

}  // namespace

/// Refills the mesh before every frame.
class FollowFigures : public osg::NodeCallback
{
public:
    explicit FollowFigures(osg::Group* figures) : m_pFigures(figures) {}

    osg::Geometry* geometry() const { return m_mesh.geometry(); }
    void follow(bool all) { m_all = all; }
    void setBare(const std::vector<osg::ref_ptr<osg::Group>>& bare)
    {
        m_bare.assign(bare.begin(), bare.end());
    }
    bool hasBare() const { return !m_bare.empty(); }

    void operator()(osg::Node*, osg::NodeVisitor*) override
    {
        m_mesh.clear();
        SkeletonPainter painter(m_mesh);
        if (m_all)
            m_pFigures->accept(painter);
        else
            for (const osg::observer_ptr<osg::Group>& bare : m_bare) {
                osg::ref_ptr<osg::Group> figure;
                if (bare.lock(figure) && figure->getNumParents() > 0)
                    figure->accept(painter);
            }
        m_mesh.finish();
    }

private:
    osg::Group* m_pFigures;
    BoneMesh m_mesh;
    bool m_all = false;
    std::vector<osg::observer_ptr<osg::Group>> m_bare;
};

SkeletonOverlay::SkeletonOverlay(osg::Group* figures) : m_spFollow(new FollowFigures(figures))
{
    setName("skeleton overlay");
    osg::StateSet* state = getOrCreateStateSet();
    state->setAttributeAndModes(makeProgram());
    state->setAttributeAndModes(new osg::CullFace(osg::CullFace::BACK));
    setUpdateCallback(m_spFollow);
    // Bodies are pushed behind the bones first, so that bones hide each other and nothing hides bones.
    osg::ref_ptr<osg::Group> clearing =
        pass(m_spFollow->geometry(), new osg::Depth(osg::Depth::ALWAYS, 1.0, 1.0), kClearing);
    clearing->getOrCreateStateSet()->setAttribute(new osg::ColorMask(false, false, false, false));
    addChild(clearing);
    addChild(pass(m_spFollow->geometry(), new osg::Depth(osg::Depth::LESS), kDrawing));
    update();
}

SkeletonOverlay::~SkeletonOverlay() = default;

void SkeletonOverlay::setShown(bool shown)
{
    m_shown = shown;
    update();
}

void SkeletonOverlay::setBare(const std::vector<osg::ref_ptr<osg::Group>>& bare)
{
    m_spFollow->setBare(bare);
    update();
}

void SkeletonOverlay::update()
{
    m_spFollow->follow(m_shown);
    setNodeMask(m_shown || m_spFollow->hasBare() ? ~0u : 0u);
}

}  // namespace KivPlayer
