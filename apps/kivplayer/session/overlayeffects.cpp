#include "apps/kivplayer/session/overlayeffects.h"

#include "KivRenderState/kivrenderstatemanager.h"
#include "apps/kivplayer/session/framepublisher.h"
#include "apps/kivplayer/stage/stage.h"

namespace KivPlayer {

void applyOverlay(Overlay overlay, bool shown, Stage& stage, FramePublisher& publisher)
{
    switch (overlay) {
        case Overlay::Contacts:
            return publisher.publishContacts(shown);
        case Overlay::CentreOfMass:
            return KivRenderState::KivRenderStateManager::instance()->setCenterOfMassShow(shown);
        case Overlay::Skeleton:
            return stage.showSkeleton(shown);
        case Overlay::Grid:
            return stage.showGrid(shown);
        case Overlay::Names:
        case Overlay::Shadows:
        case Overlay::PropDraggers:
        case Overlay::ContactDraggers:
        case Overlay::FitReport:
        case Overlay::Statistics:
        case Overlay::Help:
            return;
    }
}

void applyOverlays(const OverlaySet& shown, Stage& stage, FramePublisher& publisher)
{
    for (const OverlayEntry& entry : overlayTable())
        applyOverlay(entry.overlay, shown[entry.overlay], stage, publisher);
}

}  // namespace KivPlayer
