#include "KivCharacterization/Characterization/cameracmdexchandlers.h"

#include <osgGA/CameraManipulator>
#include <osgViewer/CompositeViewer>

#include "KivCharacterization/common/commandcodes.h"
#include "KivMemoryShare/scenecfgshare.h"
#include "KivRenderState/kivrenderstatemanager.h"

namespace KivCharacterization {

using KivRenderState::KivRenderStateManager;

CameraTraceCmdExcHandler::CameraTraceCmdExcHandler(ActorTable* actors, const std::string& traceId,
                                                   bool traceOn)
    : ICmdExcDelegate(kCameraTraceCodes[0], kCameraTraceCodes[1], kCameraTraceCodes[2], kCameraTraceCodes[3]),
      m_pActors(actors),
      m_strTraceId(traceId),
      m_bTraceOn(traceOn)
{}

bool CameraTraceCmdExcHandler::prepare()
{
    KivRenderStateManager* state = KivRenderStateManager::instance();
    state->setCameraTraceState(m_bTraceOn);
    state->setCameraTraceIdStr(m_strTraceId);
    return true;
}

CameraHomePositionCmdExcHandler::CameraHomePositionCmdExcHandler()
    : ICmdExcDelegate(kCameraHomeCodes[0], kCameraHomeCodes[1], kCameraHomeCodes[2], kCameraHomeCodes[3])
{}

bool CameraHomePositionCmdExcHandler::execute()
{
    if (osgViewer::CompositeViewer* viewer =
            KivMemoryShare::SceneCfgShare::instance()->getCompositeViewer()) {
        osgViewer::ViewerBase::Views views;
        viewer->getViews(views, true);
        for (osgViewer::View* view : views) {
            if (osgGA::CameraManipulator* manipulator = view->getCameraManipulator()) {
                manipulator->home(0.0);
            }
        }
    }
    KivRenderStateManager::instance()->setCameraTraceMatrix(osg::Matrixd::identity());
    return true;
}

}  // namespace KivCharacterization
