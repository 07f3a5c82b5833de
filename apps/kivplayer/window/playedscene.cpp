#include "apps/kivplayer/window/playedscene.h"

#include "KivMemoryShare/scenecfgshare.h"
#include "apps/kivplayer/content/bareskeleton.h"
#include "apps/kivplayer/stage/framing.h"

namespace KivPlayer {

PlayedScene::PlayedScene(Session& session, bool contacts)
    : m_session(session),
      m_loader(session),
      m_publisher(contacts),
      m_uploads(KivMemoryShare::SceneCfgShare::instance()->getCharacterSceneNode()),
      m_stage(m_uploads.root())
{}

void PlayedScene::takeActors()
{
    m_publisher.setActors(m_session.actors());
    m_stage.setUp(boxWithGround(m_publisher.sampledBox()));
    m_stage.setBare(bareSkeletons(m_session.actors()));
}

void PlayedScene::show(double seconds, bool complete)
{
    complete ? m_uploads.receiveAtOnce() : m_uploads.receive();
    if (m_loader.isBusy())
        m_session.keepOffsets();
    m_publisher.show(seconds);
    m_stage.light(boxWithGround(m_publisher.positionsNow()));
}

}  // namespace KivPlayer
