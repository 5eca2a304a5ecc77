#include "platform/portable/display_server.h"

#include <X11/Xlib.h>
#include <X11/extensions/Xrandr.h>
#include <dlfcn.h>

#include <algorithm>
#include <memory>
#include <span>

#include "platform/portable/user_folders.h"

namespace kestrune::platform::portable {

namespace {

/// A shared library, for as long as it is used.
class Library {
 public:
  explicit Library(const char* name) : handle_(dlopen(name, RTLD_NOW | RTLD_LOCAL)) {}
  ~Library() {
    if (handle_ != nullptr) dlclose(handle_);
  }
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  /// Null where the library or the function is missing.
  template <typename Function>
  void Find(const char* name, Function*& function) const {
    function = handle_ == nullptr ? nullptr : reinterpret_cast<Function*>(dlsym(handle_, name));
  }

 private:
  void* handle_;
};

/// What is called of the two libraries, by their own names.
struct ServerCalls {
  ServerCalls();
  bool IsWhole() const;

  Library x11{"libX11.so.6"};
  Library randr{"libXrandr.so.2"};
  decltype(XOpenDisplay)* open = nullptr;
  decltype(XCloseDisplay)* close = nullptr;
  decltype(XDefaultRootWindow)* root = nullptr;
  decltype(XDefaultScreen)* screen = nullptr;
  decltype(XDefaultDepth)* depth = nullptr;
  decltype(XSetErrorHandler)* set_error_handler = nullptr;
  decltype(XRRQueryExtension)* query = nullptr;
  decltype(XRRGetScreenInfo)* get_info = nullptr;
  decltype(XRRFreeScreenConfigInfo)* free_info = nullptr;
  decltype(XRRConfigSizes)* sizes = nullptr;
  decltype(XRRConfigRates)* rates = nullptr;
  decltype(XRRConfigCurrentConfiguration)* current = nullptr;
  decltype(XRRConfigCurrentRate)* current_rate = nullptr;
  decltype(XRRSetScreenConfigAndRate)* set = nullptr;
};

ServerCalls::ServerCalls() {
  x11.Find("XOpenDisplay", open);
  x11.Find("XCloseDisplay", close);
  x11.Find("XDefaultRootWindow", root);
  x11.Find("XDefaultScreen", screen);
  x11.Find("XDefaultDepth", depth);
  x11.Find("XSetErrorHandler", set_error_handler);
  randr.Find("XRRQueryExtension", query);
  randr.Find("XRRGetScreenInfo", get_info);
  randr.Find("XRRFreeScreenConfigInfo", free_info);
  randr.Find("XRRConfigSizes", sizes);
  randr.Find("XRRConfigRates", rates);
  randr.Find("XRRConfigCurrentConfiguration", current);
  randr.Find("XRRConfigCurrentRate", current_rate);
  randr.Find("XRRSetScreenConfigAndRate", set);
}

bool ServerCalls::IsWhole() const {
  return open != nullptr && close != nullptr && root != nullptr && screen != nullptr &&
         depth != nullptr && set_error_handler != nullptr && query != nullptr &&
         get_info != nullptr && free_info != nullptr && sizes != nullptr && rates != nullptr &&
         current != nullptr && current_rate != nullptr && set != nullptr;
}

/// A connection with the display server, with what it says of the screen.
class Server {
 public:
  Server() {
    const bool is_asked = calls_.IsWhole() && Environment("WAYLAND_DISPLAY").empty() &&
                          !Environment("DISPLAY").empty();
    if (!is_asked) return;
    display_ = calls_.open(nullptr);
    if (display_ == nullptr) return;
    // Without one of its own a refusal would end the program.
    former_handler_ = calls_.set_error_handler([](Display*, XErrorEvent*) { return 0; });
    int first_event = 0;
    int first_error = 0;
    if (calls_.query(display_, &first_event, &first_error) == 0) return;
    info_ = calls_.get_info(display_, calls_.root(display_));
  }
  ~Server() {
    if (info_ != nullptr) calls_.free_info(info_);
    if (display_ == nullptr) return;
    calls_.close(display_);
    calls_.set_error_handler(former_handler_);
  }
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  bool Answers() const { return info_ != nullptr; }
  std::span<const XRRScreenSize> Sizes() const {
    int count = 0;
    const XRRScreenSize* sizes = calls_.sizes(info_, &count);
    return {sizes, static_cast<std::size_t>(std::max(count, 0))};
  }
  std::span<const short> Rates(std::size_t size) const {
    int count = 0;
    const short* rates = calls_.rates(info_, static_cast<int>(size), &count);
    return {rates, static_cast<std::size_t>(std::max(count, 0))};
  }
  DisplayMode ModeOf(std::size_t size, int rate) const {
    const XRRScreenSize& each = Sizes()[size];
    return {each.width, each.height, Depth(), rate};
  }
  std::vector<DisplayMode> CurrentMode() const {
    Rotation rotation = 0;
    const std::size_t size = calls_.current(info_, &rotation);
    if (size >= Sizes().size()) return {};
    return {ModeOf(size, calls_.current_rate(info_))};
  }
  /// The bits that a pixel takes.
  int Depth() const {
    constexpr int kColours = 24;
    constexpr int kWord = 32;
    const int depth = calls_.depth(display_, calls_.screen(display_));
    return depth == kColours ? kWord : depth;
  }
  /// A rate of 0 leaves it to the server.
  bool Set(std::size_t size, int rate) {
    Rotation rotation = 0;
    calls_.current(info_, &rotation);
    return calls_.set(display_, info_, calls_.root(display_), static_cast<int>(size), rotation,
                      static_cast<short>(rate), CurrentTime) == RRSetConfigSuccess;
  }

 private:
  ServerCalls calls_;
  Display* display_ = nullptr;
  XErrorHandler former_handler_ = nullptr;
  XRRScreenConfiguration* info_ = nullptr;
};

}  // namespace

std::vector<DisplayMode> ReadDisplayModes() {
  const Server server;
  if (!server.Answers()) return {};
  std::vector<DisplayMode> modes = server.CurrentMode();
  if (modes.empty()) return {};
  const auto first = modes.size();
  const auto add = [&modes, first](const DisplayMode& mode) {
    const auto listed = modes.begin() + static_cast<std::ptrdiff_t>(first);
    if (std::find(listed, modes.end(), mode) == modes.end()) modes.push_back(mode);
  };
  for (std::size_t size = 0; size < server.Sizes().size(); ++size) {
    const std::span<const short> rates = server.Rates(size);
    for (const short rate : rates) add(server.ModeOf(size, rate));
    if (rates.empty()) add(server.ModeOf(size, 0));
  }
  return modes;
}

bool ChangeDisplayMode(const ModeRequest& request) {
  Server server;
  if (!server.Answers() || request.depth.value_or(server.Depth()) != server.Depth()) return false;
  const std::span<const XRRScreenSize> sizes = server.Sizes();
  const auto size = std::find_if(sizes.begin(), sizes.end(), [&](const XRRScreenSize& each) {
    return each.width == request.width && each.height == request.height;
  });
  return size != sizes.end() &&
         server.Set(static_cast<std::size_t>(size - sizes.begin()), request.refresh.value_or(0));
}

}  // namespace kestrune::platform::portable
