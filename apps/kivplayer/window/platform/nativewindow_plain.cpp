#include "apps/kivplayer/window/platform/nativewindow.h"

namespace KivPlayer {

std::unique_ptr<NativeWindow> NativeWindow::of(osg::GraphicsContext&)
{
    return nullptr;
}

}  // namespace KivPlayer
