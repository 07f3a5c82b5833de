#include <osgViewer/api/X11/GraphicsWindowX11>

#include <X11/Xatom.h>
#include <X11/Xlib.h>

#include <utility>

#include "apps/kivplayer/window/platform/nativewindow.h"

namespace KivPlayer {

namespace {

constexpr long kDragVersion = 5;

/// Receives files by the XDND protocol. OpenSceneGraph reads and drops all messages to its window, so that
/// drags are sent to a window of our own, on a connection of our own, which stands in for it.
class X11Window : public NativeWindow
{
public:
    X11Window(const std::string& display, Window shown);
    ~X11Window() override;

    std::vector<std::string> droppedFiles() override;
    bool hasKeyboard() override;

private:
    Atom atom(const char* name) const { return XInternAtom(m_pDisplay, name, False); }
    void setNumber(Window window, const char* property, Atom type, unsigned long value);
    void take(const XClientMessageEvent& message);
    void entered(const XClientMessageEvent& message);
    void askForList(const XClientMessageEvent& message);
    void takeList(const XSelectionEvent& selection);
    void answer(const char* type, bool accepted, Atom action);
    std::vector<unsigned long> atoms(Window window, const char* property) const;

    Display* m_pDisplay;
    Window m_shown;
    Window m_standIn = None;
    Window m_source = None;
    bool m_offersFiles = false;
    std::vector<std::string> m_dropped;
};

X11Window::X11Window(const std::string& display, Window shown)
    : m_pDisplay(XOpenDisplay(display.empty() ? nullptr : display.c_str())), m_shown(shown)
{
    if (!m_pDisplay)
        return;
    m_standIn = XCreateSimpleWindow(m_pDisplay, DefaultRootWindow(m_pDisplay), -10, -10, 1, 1, 0, 0, 0);
    // A stand-in counts only if it names itself.
    setNumber(m_standIn, "XdndProxy", XA_WINDOW, m_standIn);
    setNumber(m_standIn, "XdndAware", XA_ATOM, kDragVersion);
    setNumber(m_shown, "XdndProxy", XA_WINDOW, m_standIn);
    setNumber(m_shown, "XdndAware", XA_ATOM, kDragVersion);
    XFlush(m_pDisplay);
}

X11Window::~X11Window()
{
    if (m_pDisplay)
        XCloseDisplay(m_pDisplay);
}

void X11Window::setNumber(Window window, const char* property, Atom type, unsigned long value)
{
    XChangeProperty(m_pDisplay, window, atom(property), type, 32, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(&value), 1);
}

std::vector<std::string> X11Window::droppedFiles()
{
    while (m_pDisplay && XPending(m_pDisplay) > 0) {
        XEvent event;
        XNextEvent(m_pDisplay, &event);
        if (event.type == ClientMessage)
            take(event.xclient);
        else if (event.type == SelectionNotify)
            takeList(event.xselection);
    }
    return std::exchange(m_dropped, {});
}

bool X11Window::hasKeyboard()
{
    if (!m_pDisplay)
        return true;
    Window focused = None;
    int revert = 0;
    XGetInputFocus(m_pDisplay, &focused, &revert);
    // Without a window manager the keyboard goes where the pointer is.
    return focused == m_shown || focused == PointerRoot || focused == DefaultRootWindow(m_pDisplay);
}

void X11Window::take(const XClientMessageEvent& message)
{
    if (message.message_type == atom("XdndEnter"))
        entered(message);
    else if (message.message_type == atom("XdndPosition") &&
             static_cast<Window>(message.data.l[0]) == m_source)
        answer("XdndStatus", m_offersFiles, atom("XdndActionCopy"));
    else if (message.message_type == atom("XdndLeave"))
        m_source = None;
    else if (message.message_type == atom("XdndDrop") && static_cast<Window>(message.data.l[0]) == m_source)
        askForList(message);
}

void X11Window::entered(const XClientMessageEvent& message)
{
    m_source = static_cast<Window>(message.data.l[0]);
    // Up to three types come with the message; more stand in a list at the source.
    const bool longList = (message.data.l[1] & 1) != 0;
    std::vector<unsigned long> types;
    if (longList)
        types = atoms(m_source, "XdndTypeList");
    else
        for (int i = 2; i < 5; ++i)
            types.push_back(static_cast<unsigned long>(message.data.l[i]));
    m_offersFiles = false;
    for (const unsigned long type : types)
        m_offersFiles |= type == atom("text/uri-list");
}

void X11Window::askForList(const XClientMessageEvent& message)
{
    if (m_offersFiles)
        XConvertSelection(m_pDisplay, atom("XdndSelection"), atom("text/uri-list"), atom("KIV_DROPPED"),
                          m_standIn, static_cast<Time>(message.data.l[2]));
    else
        answer("XdndFinished", false, None);
}

void X11Window::takeList(const XSelectionEvent& selection)
{
    bool taken = false;
    if (selection.property != None) {
        Atom type = None;
        int format = 0;
        unsigned long count = 0;
        unsigned long rest = 0;
        unsigned char* data = nullptr;
        constexpr long kMost = 1 << 18;  // of four bytes each
        XGetWindowProperty(m_pDisplay, m_standIn, selection.property, 0, kMost, True, AnyPropertyType, &type,
                           &format, &count, &rest, &data);
        if (data && format == 8) {
            m_dropped = filesInUriList(std::string(reinterpret_cast<const char*>(data), count));
            taken = true;
        }
        if (data)
            XFree(data);
    }
    answer("XdndFinished", taken, taken ? atom("XdndActionCopy") : None);
    m_source = None;
}

void X11Window::answer(const char* type, bool accepted, Atom action)
{
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = m_source;
    event.xclient.message_type = atom(type);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(m_shown);
    event.xclient.data.l[1] = accepted ? 1 : 0;
    const bool status = event.xclient.message_type == atom("XdndStatus");
    event.xclient.data.l[status ? 4 : 2] = accepted ? static_cast<long>(action) : 0;
    XSendEvent(m_pDisplay, m_source, False, NoEventMask, &event);
    XFlush(m_pDisplay);
}

std::vector<unsigned long> X11Window::atoms(Window window, const char* property) const
{
    Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long rest = 0;
    unsigned char* data = nullptr;
    constexpr long kMost = 1024;
    std::vector<unsigned long> list;
    if (XGetWindowProperty(m_pDisplay, window, atom(property), 0, kMost, False, XA_ATOM, &type, &format,
                           &count, &rest, &data) == Success &&
        data && format == 32) {
        const auto* values = reinterpret_cast<const unsigned long*>(data);
        list.assign(values, values + count);
    }
    if (data)
        XFree(data);
    return list;
}

}  // namespace

std::unique_ptr<NativeWindow> NativeWindow::of(osg::GraphicsContext& context)
{
    auto* window = dynamic_cast<osgViewer::GraphicsWindowX11*>(&context);
    const osg::GraphicsContext::Traits* traits = context.getTraits();
    if (!window || !traits)
        return nullptr;
    return std::make_unique<X11Window>(traits->displayName(), window->getWindow());
}

}  // namespace KivPlayer
