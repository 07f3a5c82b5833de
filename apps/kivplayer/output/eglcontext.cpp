#include "apps/kivplayer/output/eglcontext.h"

#include <EGL/egl.h>
#include <EGL/eglext.h>

#include <stdexcept>
#include <string>

namespace KivPlayer {

namespace {

EGLDisplay openDisplay()
{
    EGLDisplay display = EGL_NO_DISPLAY;
    if (const auto platformDisplay =
            reinterpret_cast<PFNEGLGETPLATFORMDISPLAYEXTPROC>(eglGetProcAddress("eglGetPlatformDisplayEXT")))
        display = platformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
    if (display == EGL_NO_DISPLAY || !eglInitialize(display, nullptr, nullptr)) {
        display = eglGetDisplay(EGL_DEFAULT_DISPLAY);
        if (display == EGL_NO_DISPLAY || !eglInitialize(display, nullptr, nullptr))
            throw std::runtime_error("no EGL display to draw on");
    }
    return display;
}

EGLConfig chooseConfig(EGLDisplay display)
{
    const EGLint wanted[] = {EGL_SURFACE_TYPE,
                             EGL_PBUFFER_BIT,
                             EGL_RENDERABLE_TYPE,
                             EGL_OPENGL_BIT,
                             EGL_RED_SIZE,
                             8,
                             EGL_GREEN_SIZE,
                             8,
                             EGL_BLUE_SIZE,
                             8,
                             EGL_ALPHA_SIZE,
                             8,
                             EGL_DEPTH_SIZE,
                             24,
                             EGL_NONE};
    EGLConfig config = nullptr;
    EGLint count = 0;
    if (!eglChooseConfig(display, wanted, &config, 1, &count) || count < 1)
        throw std::runtime_error("no EGL configuration with desktop OpenGL, 24 bit colour and 24 bit depth");
    return config;
}

}  // namespace

EglContext::EglContext(int width, int height)
{
    m_display = openDisplay();
    try {
        if (!eglBindAPI(EGL_OPENGL_API))
            throw std::runtime_error("this EGL has no desktop OpenGL");
        EGLConfig config = chooseConfig(m_display);
        const EGLint size[] = {EGL_WIDTH, width, EGL_HEIGHT, height, EGL_NONE};
        m_surface = eglCreatePbufferSurface(m_display, config, size);
        if (m_surface == EGL_NO_SURFACE)
            throw std::runtime_error("no off-screen surface of " + std::to_string(width) + " x " +
                                     std::to_string(height) + " pixels");
        m_context = eglCreateContext(m_display, config, EGL_NO_CONTEXT, nullptr);
        if (m_context == EGL_NO_CONTEXT || !eglMakeCurrent(m_display, m_surface, m_surface, m_context))
            throw std::runtime_error("no OpenGL context for the off-screen surface");
    } catch (...) {
        if (m_context)
            eglDestroyContext(m_display, m_context);
        if (m_surface)
            eglDestroySurface(m_display, m_surface);
        eglTerminate(m_display);
        throw;
    }
}

EglContext::~EglContext()
{
    eglMakeCurrent(m_display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
    eglDestroyContext(m_display, m_context);
    eglDestroySurface(m_display, m_surface);
    eglTerminate(m_display);
    eglReleaseThread();
}

int EglContext::largestSide()
{
    EGLDisplay display = openDisplay();
    EGLint widest = 0;
    EGLint highest = 0;
    if (eglBindAPI(EGL_OPENGL_API)) {
        EGLConfig config = chooseConfig(display);
        eglGetConfigAttrib(display, config, EGL_MAX_PBUFFER_WIDTH, &widest);
        eglGetConfigAttrib(display, config, EGL_MAX_PBUFFER_HEIGHT, &highest);
    }
    eglTerminate(display);
    return widest < highest ? widest : highest;
}

}  // namespace KivPlayer
