#include "apps/kivplayer/output/picturemaker.h"

#include <osg/Math>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <locale>
#include <sstream>

#include "KivMemoryShare/scenecfgshare.h"
#include "apps/kivplayer/content/bareskeleton.h"
#include "apps/kivplayer/output/outputtimes.h"
#include "apps/kivplayer/output/picturefile.h"
#include "apps/kivplayer/output/supersampler.h"
#include "apps/kivplayer/output/videofile.h"
#include "apps/kivplayer/session/overlayeffects.h"
#include "apps/kivplayer/support/progress.h"

namespace KivPlayer {

namespace {

constexpr double kFieldOfView = 30.0;  // degrees
/// Joints lie inside the body: what a figure needs around them, as a share of its height.
constexpr double kFlesh = 0.10;
/// What the avatar's head takes above the head joint, whatever the figure's size.
constexpr double kHeadHeight = 18.0;
/// What a name label takes: scene units above the head joint, and for each letter.
constexpr double kLabelHeight = 30.0;
constexpr double kLetterWidth = 7.0;

}  // namespace

PictureMaker::PictureMaker(const Options& options, Session& session, Console& console)
    : m_options(options),
      m_session(session),
      m_console(console),
      m_publisher(options.shown[Overlay::Contacts]),
      m_offscreen(
          options.width, options.height,
          options.samples > 0 ? options.samples : defaultSupersampling(options.width, options.height)),
      m_stage(KivMemoryShare::SceneCfgShare::instance()->getCharacterSceneNode()),
      m_caption(options.width, options.height, session.fontPath()),
      m_notice(options.width, options.height, session.fontPath(), Caption::Edge::Upper)
{
    KivMemoryShare::SceneCfgShare::instance()->setCompositeViewer(&m_offscreen.viewer());
    applyOverlays(options.shown, m_stage, m_publisher);
    osg::ref_ptr<osg::Group> shown = new osg::Group;
    shown->addChild(m_stage.root());
    shown->addChild(m_caption.node());
    shown->addChild(m_notice.node());
    m_offscreen.view().setSceneData(shown);
    restart();
}

void PictureMaker::restart()
{
    m_publisher.setActors(m_session.actors(), m_options.isMoving() ? m_options.range : std::nullopt);
    m_stage.setBare(bareSkeletons(m_session.actors()));
    m_notice.say(bareNotice(m_session.actors()));
    warnOfTimesOutside();
    m_followed.reset();
    if (m_options.follow) {
        const auto actor = m_session.actors().find(static_cast<unsigned>(*m_options.follow));
        if (actor != m_session.actors().end())
            m_followed = static_cast<std::size_t>(std::distance(m_session.actors().begin(), actor));
    }
    const bool sequence = m_options.isMoving();
    if (!sequence)
        m_publisher.show(stillTime(m_options, m_session.actors()));
    if (m_followed)
        aim(m_publisher.sampledPositionsOver(*m_followed), m_publisher.sampledHeadsOver(*m_followed));
    else if (sequence)
        aim(m_publisher.sampledPositions(), m_publisher.sampledHeads());
    else
        aim(m_publisher.positionsNow(), m_publisher.headsNow());
}

PictureMaker::~PictureMaker()
{
    KivMemoryShare::SceneCfgShare::instance()->setCompositeViewer(nullptr);
}

void PictureMaker::caption(const std::string& text)
{
    m_caption.say(text);
}

void PictureMaker::aim(const std::vector<osg::Vec3d>& positions, const std::vector<osg::Vec3d>& heads)
{
    const osg::BoundingBox box = boxWithGround(positions);
    const double height = box.valid() ? static_cast<double>(box.zMax() - box.zMin()) : 0.0;
    const double compass = m_publisher.facing() + m_options.view.azimuth;
    std::vector<osg::Vec3d> shown = positions;
    for (const osg::Vec3d& position : positions)
        shown.emplace_back(position.x(), position.y(), std::min(0.0, position.z()));
    for (const osg::Vec3d& head : heads)
        shown.push_back(head + osg::Vec3d(0, 0, kHeadHeight));
    addLabels(heads, compass, shown);
    CameraPose pose = frameAll(shown, compass, m_options.view.elevation, kFieldOfView,
                               static_cast<double>(m_options.width) / m_options.height,
                               std::max(kFlesh * std::min(height, 200.0), 0.02 * height));
    if (m_options.cameraTarget)
        pose.target = *m_options.cameraTarget;
    if (m_options.cameraPosition)
        pose.eye = *m_options.cameraPosition;
    const osg::Vec3d away = pose.eye - pose.target;
    if (std::hypot(away.x(), away.y()) < 1e-3 * away.length())
        pose.up = osg::Vec3d(0, 1, 0);
    m_pose = pose;
    look(osg::Vec3d());
    m_stage.setFront(std::atan2(away.y(), away.x()));
    m_stage.setUp(boxWithGround(m_publisher.sampledBox()));
}

void PictureMaker::addLabels(const std::vector<osg::Vec3d>& heads, double compass,
                             std::vector<osg::Vec3d>& shown) const
{
    const auto& actors = m_session.actors();
    if (!m_options.shown.chosen(Overlay::Names).value_or(actors.size() > 1))
        return;
    const osg::Vec3d right(-std::sin(compass), std::cos(compass), 0.0);
    auto actor = actors.begin();
    for (const osg::Vec3d& head : heads) {
        const double half = 0.5 * kLetterWidth * static_cast<double>(actor->second.name.size());
        shown.push_back(head + right * half + osg::Vec3d(0, 0, kLabelHeight));
        shown.push_back(head - right * half + osg::Vec3d(0, 0, kLabelHeight));
        if (++actor == actors.end())
            actor = actors.begin();
    }
}

osg::ref_ptr<osg::Image> PictureMaker::still()
{
    return picture(stillTime(m_options, m_session.actors()));
}

void PictureMaker::look(const osg::Vec3d& along)
{
    m_offscreen.view().getCamera()->setViewMatrixAsLookAt(m_pose.eye + along, m_pose.target + along,
                                                          m_pose.up);
}

void PictureMaker::warnOfTimesOutside() const
{
    constexpr double kSameTime = 1e-6;
    const double latest = m_options.range ? m_options.range->first : stillTime(m_options, m_session.actors());
    std::ostringstream message;
    message.imbue(std::locale::classic());
    if (latest > m_publisher.duration() + kSameTime)
        message << "the motion ends after " << m_publisher.duration() << " s; its last frame is shown";
    else if (latest < -kSameTime)
        message << "frame " << *m_options.frame << " lies " << -latest
                << " s before the clock begins; what it begins with is shown";
    else
        return;
    m_console.warning({"", 0, 0, message.str()});
}

osg::ref_ptr<osg::Image> PictureMaker::picture(double seconds)
{
    if (m_followed)
        look(m_publisher.groundUnder(*m_followed, seconds));
    m_publisher.show(seconds);
    m_stage.light(boxWithGround(m_publisher.positionsNow()));
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

void PictureMaker::write(const osg::Image& image, const std::string& file)
{
    const std::string problem = writePicture(image, file);
    if (!problem.empty())
        m_console.error({file, 0, 0, problem});
    m_written = problem.empty();
}

void PictureMaker::writeSequence(const OutputNames& names)
{
    const OutputTimes times = outputTimes(m_options, m_publisher.duration());
    Progress progress(m_console.stream(), Progress::styleFor(Progress::kErrorStream, m_console.isQuiet()),
                      "pictures", times.count);
    for (unsigned long long i = 0; i < times.count; ++i) {
        write(*picture(times.at(i)), names.name(i));
        if (!m_written)
            return;
        progress.done(i + 1);
    }
}

void PictureMaker::writeVideo(const std::string& file)
{
    const OutputTimes times = outputTimes(m_options, m_publisher.duration());
    VideoFile video(file, m_offscreen.width(), m_offscreen.height(), times.fps);
    std::string problem = video.open();
    {
        Progress progress(m_console.stream(), Progress::styleFor(Progress::kErrorStream, m_console.isQuiet()),
                          "video", times.count);
        for (unsigned long long i = 0; i < times.count && problem.empty(); ++i) {
            problem = video.add(*picture(times.at(i)));
            progress.done(i + 1);
        }
    }
    if (problem.empty())
        problem = video.close();
    if (!problem.empty())
        m_console.error({file, 0, 0, problem});
}

}  // namespace KivPlayer
