#pragma once

namespace KivPlayer {

/// A desktop OpenGL context with an off-screen surface, current on the thread that made it until it is
/// destroyed.
class EglContext
{
public:
    /// @throws std::runtime_error with the step that failed.
    EglContext(int width, int height);
    ~EglContext();
    EglContext(const EglContext&) = delete;
    EglContext& operator=(const EglContext&) = delete;

    /// The largest side of a surface that the driver offers; 0 where it does not tell.
    static int largestSide();

private:
    void* m_display = nullptr;
    void* m_surface = nullptr;
    void* m_context = nullptr;
};

}  // namespace KivPlayer
