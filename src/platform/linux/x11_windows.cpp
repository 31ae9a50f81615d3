#include "platform/linux/x11_windows.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace qv {
namespace {

int PassOver(Display*, XErrorEvent*) { return 0; }  // windows go while they are being asked

class Connection {
   public:
    Connection() : display_(XOpenDisplay(nullptr)) {
        if (display_ != nullptr) before_ = XSetErrorHandler(PassOver);
    }
    ~Connection() {
        if (display_ == nullptr) return;
        XSync(display_, False);
        XSetErrorHandler(before_);
        XCloseDisplay(display_);
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    explicit operator bool() const { return display_ != nullptr; }
    Display* Get() const { return display_; }
    Window Root() const { return DefaultRootWindow(display_); }
    Atom Name(const char* name) const { return XInternAtom(display_, name, False); }

   private:
    Display* display_;
    XErrorHandler before_ = nullptr;
};

struct Free {
    void operator()(unsigned char* data) const { XFree(data); }
};

// A property's bytes and how many items it has.
struct Property {
    std::unique_ptr<unsigned char, Free> data;
    unsigned long items = 0;
};

Property Read(const Connection& x, Window window, Atom name, Atom type) {
    constexpr long kMost = 1 << 16;  // words
    Atom actualType = None;
    int format = 0;
    unsigned long left = 0;
    unsigned char* data = nullptr;
    Property property;
    if (XGetWindowProperty(x.Get(), window, name, 0, kMost, False, type, &actualType, &format, &property.items, &left, &data) ==
        Success)
        property.data.reset(data);
    if (!property.data) property.items = 0;
    return property;
}

std::string TitleOf(const Connection& x, Window window) {
    for (const auto& [name, type] : {std::pair{x.Name("_NET_WM_NAME"), x.Name("UTF8_STRING")}, std::pair{Atom{XA_WM_NAME}, Atom{XA_STRING}}}) {
        const Property text = Read(x, window, name, type);
        if (text.items > 0) return {reinterpret_cast<const char*>(text.data.get()), text.items};
    }
    return "";
}

// The window manager's clients, the one in front first; without a window manager, the windows on the screen.
std::vector<Window> Clients(const Connection& x) {
    std::vector<Window> clients;
    for (const char* list : {"_NET_CLIENT_LIST_STACKING", "_NET_CLIENT_LIST"}) {
        const Property windows = Read(x, x.Root(), x.Name(list), XA_WINDOW);
        const auto* first = reinterpret_cast<const Window*>(windows.data.get());
        clients.assign(first, first + windows.items);
        if (!clients.empty()) break;
    }
    if (clients.empty()) {
        Window root = None;
        Window parent = None;
        Window* children = nullptr;
        unsigned int count = 0;
        if (XQueryTree(x.Get(), x.Root(), &root, &parent, &children, &count) != 0 && children != nullptr) {
            clients.assign(children, children + count);
            XFree(children);
        }
    }
    std::reverse(clients.begin(), clients.end());
    return clients;
}

}  // namespace

bool HasDisplay() {
    const char* wayland = std::getenv("WAYLAND_DISPLAY");
    return (wayland != nullptr && *wayland != '\0') || Connection();
}

std::vector<std::string> X11Windows::Titles() {
    std::vector<std::string> titles;
    const Connection x;
    if (!x) return titles;
    for (const Window window : Clients(x))
        if (std::string title = TitleOf(x, window); !title.empty()) titles.push_back(std::move(title));
    return titles;
}

bool X11Windows::Activate(const std::string& title) {
    const Connection x;
    if (!x) return false;
    for (const Window window : Clients(x)) {
        if (TitleOf(x, window) != title) continue;
        XEvent event{};
        event.xclient.type = ClientMessage;
        event.xclient.window = window;
        event.xclient.message_type = x.Name("_NET_ACTIVE_WINDOW");
        event.xclient.format = 32;
        event.xclient.data.l[0] = 2;  // on the user's behalf
        XMapRaised(x.Get(), window);
        XSendEvent(x.Get(), x.Root(), False, SubstructureRedirectMask | SubstructureNotifyMask, &event);
        XSync(x.Get(), False);
        XSetInputFocus(x.Get(), window, RevertToPointerRoot, CurrentTime);
        return true;
    }
    return false;
}

void X11Windows::PressKey(const std::string& key, bool control) {
    const Connection x;
    if (!x) return;
    const KeyCode code = XKeysymToKeycode(x.Get(), XStringToKeysym(key.c_str()));
    const KeyCode held = XKeysymToKeycode(x.Get(), XK_Control_L);
    if (code == 0) return;
    if (control) XTestFakeKeyEvent(x.Get(), held, True, CurrentTime);
    XTestFakeKeyEvent(x.Get(), code, True, CurrentTime);
    XTestFakeKeyEvent(x.Get(), code, False, CurrentTime);
    if (control) XTestFakeKeyEvent(x.Get(), held, False, CurrentTime);
}

}  // namespace qv
