#pragma once

#include <osg/GraphicsContext>

#include <memory>
#include <string>
#include <vector>

namespace KivPlayer {

/// What OpenSceneGraph's window does not offer: files that are dropped on it, and whether it has the
/// keyboard. On the thread of the frame loop, for as long as the window is open.
class NativeWindow
{
public:
    virtual ~NativeWindow() = default;

    /// @return null where the system is not supported.
    static std::unique_ptr<NativeWindow> of(osg::GraphicsContext& context);

    /// The files that were dropped since the last call.
    virtual std::vector<std::string> droppedFiles() = 0;
    /// False only where the keyboard is known to be elsewhere.
    virtual bool hasKeyboard() = 0;
};

/// The local files in a text/uri-list, in its order.
std::vector<std::string> filesInUriList(const std::string& list);

}  // namespace KivPlayer
