#include "apps/kivplayer/stage/stage.h"

#include <osg/Geometry>
#include <osg/Program>

#include <algorithm>
#include <cmath>
#include <string>

#include "apps/kivplayer/stage/hiddenmarkers.h"
#include "apps/kivplayer/stage/stageshaders.h"

namespace KivPlayer {

namespace {

constexpr int kShadowSide = 2048;
constexpr int kQuickShadowSide = 1024;
constexpr int kFootprintSide = 512;
constexpr unsigned kShadowUnit = 4;
constexpr unsigned kFootprintUnit = 5;
constexpr double kReachStep = 50.0;
constexpr double kMaxReach = 1500.0;
constexpr double kFootprintHeight = 90.0;
constexpr double kKeyElevation = 0.78;
constexpr double kKeyBeside = 0.95;  // radians to the left of the first look

constexpr int kBackdropBin = -20;
// After the figures, so that nothing is shaded that they hide; ahead of what is transparent.
constexpr int kGroundBin = 5;

osg::ref_ptr<osg::Program> makeProgram(const char* vertex, const std::string& fragment)
{
    osg::ref_ptr<osg::Program> program = new osg::Program;
    program->addShader(new osg::Shader(osg::Shader::VERTEX, vertex));
    program->addShader(new osg::Shader(osg::Shader::FRAGMENT, fragment));
    return program;
}

std::string definesFor(StageDetail detail)
{
    switch (detail) {
        case StageDetail::Fine:
            return "#define KIV_SHADOW_TAPS 5\n#define KIV_SKY_TAPS 12\n";
        case StageDetail::Quick:
            return "#define KIV_SHADOW_TAPS 2\n#define KIV_SKY_TAPS 6\n";
        case StageDetail::Plain:
            break;
    }
    return "#define KIV_SHADOW_TAPS 0\n#define KIV_SKY_TAPS 6\n";
}

std::string litFragment(const char* own, StageDetail detail, const std::string& defines = {})
{
    return StageShaders::kVersion + definesFor(detail) + defines + StageShaders::kColours +
           StageShaders::kLighting + own;
}

/// Takes no part in the choice of the near and far plane.
class NoBound : public osg::Drawable::ComputeBoundingBoxCallback
{
public:
    osg::BoundingBox computeBound(const osg::Drawable&) const override { return osg::BoundingBox(); }
};

/// Behind everything, whatever its depth.
osg::ref_ptr<osg::Geometry> makeBackdrop()
{
    osg::ref_ptr<osg::Geometry> backdrop = new osg::Geometry;
    osg::ref_ptr<osg::Vec3Array> corners = new osg::Vec3Array;
    for (const float y : {-1.0f, 1.0f})
        for (const float x : {-1.0f, 1.0f})
            corners->push_back({x, y, 0.0f});
    backdrop->setVertexArray(corners);
    backdrop->addPrimitiveSet(new osg::DrawArrays(GL_TRIANGLE_STRIP, 0, 4));
    backdrop->setUseVertexBufferObjects(true);
    backdrop->setUseDisplayList(false);
    backdrop->setName("backdrop");
    backdrop->setCullingActive(false);
    backdrop->setComputeBoundingBoxCallback(new NoBound);
    osg::StateSet* state = backdrop->getOrCreateStateSet();
    state->setAttributeAndModes(makeProgram(
        StageShaders::kBackdropVertex,
        std::string(StageShaders::kVersion) + StageShaders::kColours + StageShaders::kBackdropFragment));
    state->setMode(GL_DEPTH_TEST, osg::StateAttribute::OFF);
    state->setRenderBinDetails(kBackdropBin, "RenderBin");
    return backdrop;
}

osg::Vec3d floorCentre(const osg::BoundingBox& box)
{
    return osg::Vec3d(box.center().x(), box.center().y(), 0.0);
}

}  // namespace

Stage::Stage(osg::Group* figures)
    : m_spRoot(new osg::Group),
      m_spKeyDirection(new osg::Uniform("kivKeyDirection", osg::Vec3f(0, 0, 1))),
      m_spShadowMatrix(new osg::Uniform("kivShadowMatrix", osg::Matrixf())),
      m_spFootprintMatrix(new osg::Uniform("kivFootprintMatrix", osg::Matrixf())),
      m_spFootprintDepth(new osg::Uniform("kivFootprintDepth", static_cast<float>(kFootprintHeight))),
      m_spCentre(new osg::Uniform("kivStageCentre", osg::Vec3f())),
      m_spRadius(new osg::Uniform("kivStageRadius", 300.0f)),
      m_spGridStep(new osg::Uniform("kivGridStep", 100.0f)),
      m_spShowGrid(new osg::Uniform("kivShowGrid", true)),
      m_spPicture(new osg::Uniform("kivPicture", osg::Vec4f(0, 0, 1, 1))),
      m_spSampleSize(new osg::Uniform("kivSampleSize", 1.0f)),
      m_spSkeleton(new SkeletonOverlay(figures)),
      m_shadow(figures, kShadowSide, true),
      m_footprint(figures, kFootprintSide, false)
{
    osg::StateSet* shared = m_spRoot->getOrCreateStateSet();
    for (const auto& uniform :
         {m_spKeyDirection, m_spShadowMatrix, m_spFootprintMatrix, m_spFootprintDepth, m_spCentre, m_spRadius,
          m_spGridStep, m_spShowGrid, m_spPicture, m_spSampleSize})
        shared->addUniform(uniform);
    shared->addUniform(new osg::Uniform("kivShadowTexel", 1.0f / kShadowSide));
    shared->addUniform(new osg::Uniform("kivShadowMap", static_cast<int>(kShadowUnit)));
    shared->addUniform(new osg::Uniform("kivFootprintMap", static_cast<int>(kFootprintUnit)));
    shared->setTextureAttributeAndModes(kShadowUnit, m_shadow.texture());
    shared->setTextureAttributeAndModes(kFootprintUnit, m_footprint.texture());

    m_ground.root()->getOrCreateStateSet()->setRenderBinDetails(kGroundBin, "RenderBin");

    osg::StateSet* state = m_spLit->getOrCreateStateSet();
    state->addUniform(new osg::Uniform("kivUnlit", false));
    state->addUniform(new osg::Uniform("kivColourFromVertices", false));
    m_spLit->addChild(figures);
    m_spLit->addChild(new HiddenMarkers(figures));
    setPrograms();

    m_spRoot->addChild(m_shadow.camera());
    m_spRoot->addChild(m_footprint.camera());
    m_spRoot->addChild(makeBackdrop());
    m_spRoot->addChild(m_ground.root());
    m_spRoot->addChild(m_spLit);
    m_spRoot->addChild(m_spSkeleton);
    setFront(-osg::PI_2);
    setUp(osg::BoundingBox(-60, -60, 0, 60, 60, 180));
}

Stage::~Stage() = default;

void Stage::setUp(const osg::BoundingBox& whole)
{
    if (!whole.valid())
        return;
    const double size = std::max(
        {whole.xMax() - whole.xMin(), whole.yMax() - whole.yMin(), whole.zMax() - whole.zMin(), 1.0f});
    const double radius = 0.5 * size + 0.5 * static_cast<double>(whole.zMax() - whole.zMin());
    // The step of the grid is the power of ten below the figures' height: metres for people in centimetres.
    const double height = std::max(1.0, static_cast<double>(whole.zMax() - whole.zMin()));
    const osg::Vec3d centre = floorCentre(whole);
    m_spCentre->set(osg::Vec3f(centre));
    m_spRadius->set(static_cast<float>(1.15 * radius));
    m_spGridStep->set(static_cast<float>(std::pow(10.0, std::floor(std::log10(height)))));
    const double reach = 6.0 * radius;
    m_ground.layOut(centre, reach);
    light(whole);
}

void Stage::light(const osg::BoundingBox& now)
{
    if (!now.valid())
        return;
    // In steps, so that shadows keep their grain while figures stretch.
    const double radius = std::ceil((static_cast<double>(now.radius()) + 25.0) / kReachStep) * kReachStep;
    const double reach = std::min(radius, kMaxReach);
    osg::Vec3f key;
    m_spKeyDirection->get(key);
    m_shadow.look(now.center(), -osg::Vec3d(key), reach, 2.0 * reach, 3.0 * reach);
    m_spShadowMatrix->set(osg::Matrixf(m_shadow.toTexture()));
    m_footprint.look(floorCentre(now), osg::Vec3d(0, 0, 1), reach, 4.0, kFootprintHeight - 4.0);
    m_spFootprintMatrix->set(osg::Matrixf(m_footprint.toTexture()));
    m_ground.surround(now, key);
}

void Stage::setFront(double azimuth)
{
    const double compass = azimuth - kKeyBeside;
    m_spKeyDirection->set(osg::Vec3f(static_cast<float>(std::cos(compass) * std::cos(kKeyElevation)),
                                     static_cast<float>(std::sin(compass) * std::cos(kKeyElevation)),
                                     static_cast<float>(std::sin(kKeyElevation))));
}

void Stage::setDetail(StageDetail detail)
{
    if (detail == m_detail)
        return;
    m_detail = detail;
    m_shadow.setSide(detail == StageDetail::Fine ? kShadowSide : kQuickShadowSide);
    m_shadow.camera()->setNodeMask(detail == StageDetail::Plain ? 0 : ~0u);
    setPrograms();
}

void Stage::setPrograms()
{
    using namespace StageShaders;
    m_spLit->getOrCreateStateSet()->setAttributeAndModes(
        makeProgram(kFigureVertex, litFragment(kFigureFragment, m_detail)));
    m_ground.nearState().setAttributeAndModes(
        makeProgram(kGroundVertex, litFragment(kGroundFragment, m_detail, "#define KIV_NEAR_FIGURES\n")));
    m_ground.farState().setAttributeAndModes(
        makeProgram(kGroundVertex, litFragment(kGroundFragment, m_detail)));
}

void Stage::fillPicture(const osg::Vec4d& area)
{
    m_spPicture->set(osg::Vec4f(area));
}

void Stage::setSampleSize(double pixels)
{
    m_spSampleSize->set(static_cast<float>(pixels));
}

void Stage::showGrid(bool shown)
{
    m_spShowGrid->set(shown);
}

void Stage::showSkeleton(bool shown)
{
    m_spSkeleton->setShown(shown);
}

void Stage::setBare(const std::vector<osg::ref_ptr<osg::Group>>& bare)
{
    m_spSkeleton->setBare(bare);
}

}  // namespace KivPlayer
