#pragma once

#include <osg/Image>
#include <osg/ref_ptr>

#include <optional>
#include <string>
#include <vector>

#include "apps/kivplayer/options/options.h"
#include "apps/kivplayer/output/captions.h"
#include "apps/kivplayer/output/offscreen.h"
#include "apps/kivplayer/session/framepublisher.h"
#include "apps/kivplayer/session/session.h"
#include "apps/kivplayer/stage/framing.h"
#include "apps/kivplayer/stage/stage.h"

namespace KivPlayer {

/// Renders the actors of a session on a stage. Made once the actors are loaded; the session outlives it.
class PictureMaker
{
public:
    /// @throws std::runtime_error where nothing can be drawn on this machine.
    PictureMaker(const Options& options, Session& session, Console& console);
    ~PictureMaker();
    PictureMaker(const PictureMaker&) = delete;
    PictureMaker& operator=(const PictureMaker&) = delete;

    /// Begins again with the actors that the session has now.
    void restart();

    /// A line of text at the lower edge of the pictures from now on; empty: none.
    void caption(const std::string& text);

    /// Poses, publishes and draws the moment that the options ask for, or that the sequence has at a time.
    osg::ref_ptr<osg::Image> still();
    osg::ref_ptr<osg::Image> picture(double seconds);

    /// Writes the part of the motion that is asked for as pictures or as one video. What cannot be written is
    /// reported and ends it.
    void writeSequence(const OutputNames& names);
    void writeVideo(const std::string& file);
    void write(const osg::Image& image, const std::string& file);

private:
    void aim(const std::vector<osg::Vec3d>& positions, const std::vector<osg::Vec3d>& heads);
    void addLabels(const std::vector<osg::Vec3d>& heads, double compass,
                   std::vector<osg::Vec3d>& shown) const;
    void look(const osg::Vec3d& along);
    void warnOfTimesOutside() const;

    const Options& m_options;
    Session& m_session;
    Console& m_console;
    FramePublisher m_publisher;
    Offscreen m_offscreen;
    Stage m_stage;
    Caption m_caption;
    Caption m_notice;   ///< of figures that are no persons
    CameraPose m_pose;  ///< seen from the followed actor's position, where one is followed
    std::optional<std::size_t> m_followed;  ///< counted among the actors that are there
    bool m_written = true;                  ///< the last picture
};

}  // namespace KivPlayer
