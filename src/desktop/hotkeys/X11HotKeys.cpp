#include "desktop/hotkeys/X11HotKeys.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <cstdint>
#include <string>
#include <utility>

#include "desktop/x11/X11Reply.h"

namespace brenwick {
namespace {

constexpr int kTypeOfEvent = 0x7f;  // without the mark of an event that another client sent
constexpr int kModifiers = 0xff;    // without the mouse buttons and the layout
constexpr int kNone = -1;

// Events of the keyboard extension: another keyboard, another layout. Since Qt asks for them, the
// display sends no MappingNotify.
constexpr int kNewKeyboard = 0;
constexpr int kNewMap = 1;

xcb_connection_t* Display() {
  return qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
}

xcb_window_t Root(xcb_connection_t* display) {
  return xcb_setup_roots_iterator(xcb_get_setup(display)).data->root;
}

int KeyboardEvent(xcb_connection_t* display) {
  static const std::string kName = "XKEYBOARD";
  const auto asked = xcb_query_extension(display, std::uint16_t(kName.size()), kName.c_str());
  const X11Reply<xcb_query_extension_reply_t> reply(
      xcb_query_extension_reply(display, asked, nullptr));
  return reply && reply->present != 0 ? reply->first_event : kNone;
}

KeyCombination With(KeyCombination combination, std::uint16_t locks) {
  combination.modifiers = static_cast<std::uint16_t>(combination.modifiers | locks);
  return combination;
}

}  // namespace

X11HotKeys::X11HotKeys(frmMain& form, Views& views)
    : views_(views),
      display_(Display()),
      root_(Root(display_)),
      xkb_event_(KeyboardEvent(display_)),
      keyboard_(display_) {
  for (Control* control : form.Controls()) {
    auto* hot_key = dynamic_cast<HotKeyControl*>(control);
    if (hot_key == nullptr) continue;
    Key& key = keys_.emplace_back(*hot_key);
    subscriptions_.push_back(hot_key->Changed.Observe([this, &key] { Follow(key); }));
  }
  layout_changed_.setSingleShot(true);
  QObject::connect(&layout_changed_, &QTimer::timeout, &layout_changed_,
                   [this] { views_.ForwardUserAction([this] { TakeAnew(); }); });
}

X11HotKeys::~X11HotKeys() {
  QCoreApplication::instance()->removeNativeEventFilter(this);
  for (Key& key : keys_) LetGo(key);
  xcb_flush(display_);
}

void X11HotKeys::Arm() {
  armed_ = true;
  QCoreApplication::instance()->installNativeEventFilter(this);
  for (Key& key : keys_) Follow(key);
}

void X11HotKeys::Follow(Key& key) {
  if (!armed_ || key.wanted == key.control.Enabled()) return;
  key.wanted = key.control.Enabled();
  if (key.wanted) {
    Take(key);
  } else {
    LetGo(key);
    xcb_flush(display_);
  }
}

// A grab holds for one state of the locks, so there is one for each state. A key that works only
// with Num Lock is worse than none.
void X11HotKeys::Take(Key& key) {
  const KeyCombination combination = keyboard_.Find(key.control.Key());
  if (combination.code != key.combination.code) key.held = false;
  key.combination = combination;
  std::vector<std::pair<KeyCombination, xcb_void_cookie_t>> asked;
  for (const std::uint16_t locks : keyboard_.ChoicesOfLocks()) {
    const KeyCombination each = With(key.combination, locks);
    asked.emplace_back(each, xcb_grab_key_checked(display_, 0, root_, each.modifiers, each.code,
                                                  XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
  }
  for (const auto& [each, cookie] : asked) {
    const X11Reply<xcb_generic_error_t> refusal(xcb_request_check(display_, cookie));
    if (!refusal) key.grabbed.push_back(each);
  }
  const bool taken = key.grabbed.size() < asked.size();
  if (taken) LetGo(key);
  key.control.SetObstacle({taken ? KeyObstacle::Kind::Taken : KeyObstacle::Kind::None});
}

void X11HotKeys::LetGo(Key& key) {
  for (const KeyCombination& each : key.grabbed) {
    xcb_ungrab_key(display_, each.code, root_, each.modifiers);
  }
  key.grabbed.clear();
}

// Lets go of all keys before it takes the first: two keys may have changed places.
void X11HotKeys::TakeAnew() {
  keyboard_ = X11Keyboard(display_);
  for (Key& key : keys_) LetGo(key);
  for (Key& key : keys_) {
    if (key.wanted) Take(key);
  }
}

bool X11HotKeys::nativeEventFilter(const QByteArray& /*type*/, void* message, qintptr* /*result*/) {
  const auto* event = static_cast<const xcb_generic_event_t*>(message);
  const int type = event->response_type & kTypeOfEvent;
  if (type == XCB_KEY_PRESS) return KeyPress(*static_cast<xcb_key_press_event_t*>(message));
  if (type == XCB_KEY_RELEASE) return KeyRelease(*static_cast<xcb_key_release_event_t*>(message));
  // The byte behind the type tells which of the extension's events it is.
  const bool keyboard =
      type == xkb_event_ && (event->pad0 == kNewKeyboard || event->pad0 == kNewMap);
  if (keyboard || type == XCB_MAPPING_NOTIFY) layout_changed_.start();
  return false;
}

// Tells the program when Qt has finished with the display's events: the handler of a key may show a
// message box and wait for the user.
bool X11HotKeys::KeyPress(const xcb_key_press_event_t& event) {
  const int modifiers = event.state & kModifiers & ~keyboard_.Locks();
  for (Key& key : keys_) {
    if (event.event != root_ || key.grabbed.empty() || event.detail != key.combination.code ||
        modifiers != key.combination.modifiers) {
      continue;
    }
    // A key that is held down repeats: it is pressed again without being released, or at the very
    // moment of its release.
    const bool repeated = key.held || event.time == key.released;
    key.held = true;
    if (repeated) return true;
    QMetaObject::invokeMethod(
        &presses_, [this, &key] { views_.ForwardUserAction([&key] { key.control.UserPress(); }); },
        Qt::QueuedConnection);
    return true;
  }
  return false;
}

// The modifiers may have been released before it.
bool X11HotKeys::KeyRelease(const xcb_key_release_event_t& event) {
  for (Key& key : keys_) {
    if (event.event != root_ || event.detail != key.combination.code || !key.held) continue;
    key.held = false;
    key.released = event.time;
    return true;
  }
  return false;
}

}  // namespace brenwick
