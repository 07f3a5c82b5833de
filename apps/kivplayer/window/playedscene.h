#pragma once

#include "apps/kivplayer/session/framepublisher.h"
#include "apps/kivplayer/session/session.h"
#include "apps/kivplayer/stage/stage.h"
#include "apps/kivplayer/window/actorloader.h"
#include "apps/kivplayer/window/uploadqueue.h"

namespace KivPlayer {

/// The figures of a session on their stage, played while others are loaded. On the thread that draws.
class PlayedScene
{
public:
    /// @param contacts whether contacts are published.
    PlayedScene(Session& session, bool contacts);

    ActorLoader& loader() { return m_loader; }
    const ActorLoader& loader() const { return m_loader; }
    FramePublisher& publisher() { return m_publisher; }
    const FramePublisher& publisher() const { return m_publisher; }
    Stage& stage() { return m_stage; }
    const UploadQueue& uploads() const { return m_uploads; }

    /// Draws with this camera what hangs below the stage's root.
    void drawWith(osg::Camera& camera) { m_uploads.uploadWith(camera); }

    /// Takes over the session's actors as they are now, and lays the stage out for them. Inside a pass of
    /// the gate.
    void takeActors();

    /// Poses and lights what the next frame shows. The gate closed.
    /// @param complete whether a figure that has just come must be seen at once.
    void show(double seconds, bool complete = false);

private:
    Session& m_session;
    ActorLoader m_loader;
    FramePublisher m_publisher;
    UploadQueue m_uploads;
    Stage m_stage;
};

}  // namespace KivPlayer
