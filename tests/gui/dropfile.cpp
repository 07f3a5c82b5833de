// dropfile WINDOW FILE | WINDOW --text TEXT: drags a file onto a window and lets it go, as file managers do,
// or a text. Ends with 0 if the window has taken it, 1 if it has refused it, 2 if it has never answered.
#include <X11/Xatom.h>
#include <X11/Xlib.h>

#include <chrono>
#include <cstdlib>
#include <iostream>
#include <string>
#include <thread>

namespace {

constexpr std::chrono::seconds kPatience(30);

class Drag
{
public:
    Drag(Display* display, Window target, std::string type, std::string data)
        : m_pDisplay(display),
          m_target(target),
          m_type(atom(type.c_str())),
          m_data(std::move(data)),
          m_source(XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, 1, 1, 0, 0, 0)),
          m_receiver(standIn())
    {
        XSetSelectionOwner(display, atom("XdndSelection"), m_source, CurrentTime);
    }

    int run()
    {
        const long type = static_cast<long>(m_type);
        tell("XdndEnter", 5L << 24, type, 0, 0);
        tell("XdndPosition", 0, (200L << 16) | 200L, CurrentTime, static_cast<long>(atom("XdndActionCopy")));
        const auto end = std::chrono::steady_clock::now() + kPatience;
        while (m_result < 0 && std::chrono::steady_clock::now() < end) {
            while (XPending(m_pDisplay) > 0)
                take();
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        return m_result < 0 ? 2 : m_result;
    }

private:
    Atom atom(const char* name) const { return XInternAtom(m_pDisplay, name, False); }

    Window standIn() const
    {
        Atom type = None;
        int format = 0;
        unsigned long count = 0, rest = 0;
        unsigned char* data = nullptr;
        XGetWindowProperty(m_pDisplay, m_target, atom("XdndProxy"), 0, 1, False, XA_WINDOW, &type, &format,
                           &count, &rest, &data);
        const Window found = data && count == 1 ? *reinterpret_cast<Window*>(data) : m_target;
        if (data)
            XFree(data);
        return found;
    }

    void tell(const char* what, long second, long third, long fourth, long fifth)
    {
        XEvent event{};
        event.xclient.type = ClientMessage;
        event.xclient.window = m_target;
        event.xclient.message_type = atom(what);
        event.xclient.format = 32;
        const long values[] = {static_cast<long>(m_source), second, third, fourth, fifth};
        for (int i = 0; i < 5; ++i)
            event.xclient.data.l[i] = values[i];
        XSendEvent(m_pDisplay, m_receiver, False, NoEventMask, &event);
        XFlush(m_pDisplay);
    }

    void take()
    {
        XEvent event;
        XNextEvent(m_pDisplay, &event);
        if (event.type == SelectionRequest)
            give(event.xselectionrequest);
        if (event.type != ClientMessage)
            return;
        const bool accepted = (event.xclient.data.l[1] & 1) != 0;
        if (event.xclient.message_type == atom("XdndStatus")) {
            tell(accepted ? "XdndDrop" : "XdndLeave", 0, CurrentTime, 0, 0);
            m_result = accepted ? m_result : 1;
        } else if (event.xclient.message_type == atom("XdndFinished")) {
            m_result = accepted ? 0 : 1;
        }
    }

    void give(const XSelectionRequestEvent& request)
    {
        XChangeProperty(m_pDisplay, request.requestor, request.property, m_type, 8, PropModeReplace,
                        reinterpret_cast<const unsigned char*>(m_data.data()),
                        static_cast<int>(m_data.size()));
        XEvent answer{};
        answer.xselection.type = SelectionNotify;
        answer.xselection.requestor = request.requestor;
        answer.xselection.selection = request.selection;
        answer.xselection.target = request.target;
        answer.xselection.property = request.property;
        answer.xselection.time = request.time;
        XSendEvent(m_pDisplay, request.requestor, False, NoEventMask, &answer);
        XFlush(m_pDisplay);
    }

    Display* m_pDisplay;
    Window m_target;
    Atom m_type;
    std::string m_data;
    Window m_source;
    Window m_receiver;
    int m_result = -1;
};

std::string uriOf(const std::string& file)
{
    std::string uri = "file://";
    for (const char letter : file)
        uri += letter == ' ' ? std::string("%20") : std::string(1, letter);
    return uri + "\r\n";
}

}  // namespace

int main(int argc, char** argv)
{
    Display* display = XOpenDisplay(nullptr);
    if (argc < 3 || !display) {
        std::cerr << "dropfile WINDOW FILE | WINDOW --text TEXT, on a display" << std::endl;
        return 2;
    }
    const Window target = std::strtoul(argv[1], nullptr, 0);
    const bool text = argc > 3 && std::string(argv[2]) == "--text";
    Drag drag(display, target, text ? "text/plain" : "text/uri-list", text ? argv[3] : uriOf(argv[2]));
    return drag.run();
}
