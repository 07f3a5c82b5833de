#include "headless.h"

#include <osg/Math>

#include <algorithm>
#include <cmath>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "KivMemoryShare/scenecfgshare.h"
#include "KivRenderState/kivrenderstatemanager.h"
#include "fitreport.h"
#include "framepublisher.h"
#include "offscreen.h"
#include "picturefile.h"
#include "progress.h"
#include "runtimeroot.h"
#include "session.h"
#include "stage.h"

namespace KivPlayer {

namespace {

constexpr double kFieldOfView = 30.0;  // degrees
/// Joints lie inside the body: what a figure needs around them, as a share of its height.
constexpr double kFlesh = 0.10;
constexpr int kErrorStream = 2;

osg::BoundingBox boxAround(const std::vector<osg::Vec3d>& places)
{
    osg::BoundingBox box;
    for (const osg::Vec3d& place : places)
        box.expandBy(place);
    if (box.valid())
        box.expandBy(osg::Vec3d(box.center().x(), box.center().y(), 0.0));
    return box;
}

/// Renders the actors of a session on a stage.
class PictureMaker
{
public:
    PictureMaker(const Options& options, Session& session, Console& console);
    ~PictureMaker() { KivMemoryShare::SceneCfgShare::instance()->setCompositeViewer(nullptr); }

    bool writeAll(const OutputNames& names);
    osg::ref_ptr<osg::Image> picture(double seconds);
    double stillTime() const;

private:
    void aim(const std::vector<osg::Vec3d>& places);
    bool write(double seconds, const std::string& file);

    const Options& m_options;
    Session& m_session;
    Console& m_console;
    FramePublisher m_publisher;
    Offscreen m_offscreen;
    Stage m_stage;
    double m_reach = 0.0;
};

PictureMaker::PictureMaker(const Options& options, Session& session, Console& console)
    : m_options(options),
      m_session(session),
      m_console(console),
      m_publisher(options.shown.contacts),
      m_offscreen(
          options.width, options.height,
          options.samples > 0 ? options.samples : Offscreen::usualMultiple(options.width, options.height)),
      m_stage(KivMemoryShare::SceneCfgShare::instance()->getCharacterSceneNode())
{
    KivMemoryShare::SceneCfgShare::instance()->setCompositeViewer(&m_offscreen.viewer());
    KivRenderState::KivRenderStateManager::instance()->setCenterOfMassShow(options.shown.centreOfMass);
    m_stage.showGrid(options.shown.grid);
    m_offscreen.view().setSceneData(m_stage.root());
    m_publisher.setActors(session.actors());
    const bool sequence = options.output && options.output->isSequence();
    if (!sequence)
        m_publisher.show(stillTime());
    aim(sequence ? m_publisher.sampledPlaces() : m_publisher.placesNow());
}

double PictureMaker::stillTime() const
{
    if (m_options.time)
        return *m_options.time;
    const auto first = m_session.actors().begin();
    if (m_options.frame && first != m_session.actors().end())
        return static_cast<double>(*m_options.frame) * first->second.document.frameTime;
    return 0.0;
}

void PictureMaker::aim(const std::vector<osg::Vec3d>& places)
{
    const osg::BoundingBox box = boxAround(places);
    const double height = box.valid() ? static_cast<double>(box.zMax() - box.zMin()) : 0.0;
    const double compass = m_publisher.facing() + m_options.view.azimuth;
    std::vector<osg::Vec3d> shown = places;
    for (const osg::Vec3d& place : places)
        shown.emplace_back(place.x(), place.y(), std::min(0.0, place.z()));
    CameraPose pose = frameAll(shown, compass, m_options.view.elevation, kFieldOfView,
                               static_cast<double>(m_options.width) / m_options.height,
                               std::max(kFlesh * std::min(height, 200.0), 0.02 * height));
    if (m_options.cameraTarget)
        pose.target = *m_options.cameraTarget;
    if (m_options.cameraPosition)
        pose.eye = *m_options.cameraPosition;
    osg::Camera* camera = m_offscreen.view().getCamera();
    const osg::Vec3d away = pose.eye - pose.target;
    const bool plumb = std::hypot(away.x(), away.y()) < 1e-3 * away.length();
    camera->setViewMatrixAsLookAt(pose.eye, pose.target, plumb ? osg::Vec3d(0, 1, 0) : pose.up);
    m_stage.setFront(std::atan2(away.y(), away.x()));
    m_stage.setUp(box);
}

osg::ref_ptr<osg::Image> PictureMaker::picture(double seconds)
{
    m_publisher.show(seconds);
    m_stage.light(boxAround(m_publisher.placesNow()));
    m_session.gate().close();
    osg::ref_ptr<osg::Image> image;
    try {
        image = m_offscreen.frame(seconds);
    } catch (...) {
        m_session.gate().open();
        throw;
    }
    m_session.gate().open();
    return image;
}

bool PictureMaker::write(double seconds, const std::string& file)
{
    const std::string problem = writePicture(*picture(seconds), file);
    if (!problem.empty())
        m_console.error({file, 0, 0, problem});
    return problem.empty();
}

bool PictureMaker::writeAll(const OutputNames& names)
{
    const std::filesystem::path folder = std::filesystem::path(names.name(0)).parent_path();
    std::error_code problem;
    if (!folder.empty())
        std::filesystem::create_directories(folder, problem);
    if (!names.isSequence())
        return write(stillTime(), names.name(0));

    const double from = m_options.range ? m_options.range->first : 0.0;
    const double to =
        m_options.range ? std::min(m_options.range->second, m_publisher.duration()) : m_publisher.duration();
    const auto count =
        static_cast<unsigned long long>(std::max(0.0, std::floor((to - from) * m_options.fps + 1e-6)) + 1.0);
    Progress progress(m_console.stream(), Progress::styleFor(kErrorStream, m_console.isQuiet()), "pictures",
                      count);
    for (unsigned long long i = 0; i < count; ++i) {
        if (!write(from + static_cast<double>(i) / m_options.fps, names.name(i)))
            return false;
        progress.done(i + 1);
    }
    return true;
}

bool writeReport(const Options& options, const Session& session, Console& console)
{
    const std::string text =
        fitReport(session.actors(), AvatarFile::read(session.avatarPath()), console.errors())
            .dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) +
        "\n";
    if (options.report == "-") {
        std::cout << text << std::flush;
        return static_cast<bool>(std::cout);
    }
    std::ofstream stream(options.report, std::ios::binary | std::ios::trunc);
    stream << text;
    stream.close();
    if (stream.fail())
        console.error({options.report, 0, 0, "cannot be written"});
    return !stream.fail();
}

ExitCode compare(const Options& options, PictureMaker& pictures, Console& console)
{
    const osg::ref_ptr<osg::Image> reference = readPicture(options.reference);
    if (!reference) {
        console.error({options.reference, 0, 0, "cannot be read as an RGB picture"});
        return ExitFailed;
    }
    const PictureDifference difference = comparePictures(*pictures.picture(pictures.stillTime()), *reference);
    if (difference.sameSize && difference.worstTile <= options.referenceThreshold)
        return ExitDone;
    console.error({options.reference, 0, 0,
                   difference.sameSize
                       ? "the picture differs: " + std::to_string(difference.worstTile) +
                             " in the worst tile, allowed is " + std::to_string(options.referenceThreshold)
                       : "the picture has another size than its reference"});
    return ExitDifferent;
}

std::string labelOf(const Options& options, std::size_t index)
{
    if (index < options.names.size())
        return options.names[index];
    return std::filesystem::path(options.motions[index]).stem().string();
}

}  // namespace

ExitCode runHeadless(const Options& options, Console& console)
{
    Session session(console);
    session.start(options.root.empty() ? findRuntimeRoot() : options.root);
    for (std::size_t i = 0; i < options.motions.size(); ++i)
        session.load(static_cast<unsigned>(i), options.motions[i], labelOf(options, i));
    ExitCode compared = ExitDone;
    try {
        if (options.shown.names)
            session.showNames(*options.shown.names);
        if (options.shown.props)
            session.showPropsDraggers(true);
        const bool wanted = options.output || !options.reference.empty();
        if (options.render && wanted && !session.actors().empty()) {
            PictureMaker pictures(options, session, console);
            if (options.output)
                pictures.writeAll(*options.output);
            if (!options.reference.empty())
                compared = compare(options, pictures, console);
        }
    } catch (const std::exception& problem) {
        console.error({"", 0, 0, problem.what()});
    }
    if (!options.report.empty())
        writeReport(options, session, console);
    if (compared == ExitDifferent)
        return ExitDifferent;
    return console.errors().empty() ? ExitDone : ExitFailed;
}

}  // namespace KivPlayer
