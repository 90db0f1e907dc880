// An X11 display of a test's own, and whoever uses it beside the program.
#pragma once

#include <xcb/xcb.h>
#include <xcb/xtest.h>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "desktop/x11/X11Reply.h"
#include "support/Server.h"

namespace brenwick {

// Key codes of an American keyboard.
namespace key {
inline constexpr xcb_keycode_t k1 = 10, k2 = 11, k5 = 14, kT = 28, kK = 45, kControl = 37,
                               kShift = 50, kCapsLock = 66, kNumLock = 77, kScrollLock = 78;
}  // namespace key

class X11Display {
 public:
  std::string Name() const { return ":" + number_; }

 private:
  Server server_{"Xvfb",
                 {"-displayfd", "1", "-screen", "0", "320x240x24", "-nolisten", "tcp", "-noreset"}};
  std::string number_ = server_.Line();
};

// A client of the display that is not the program: another program, and the hand on the keyboard.
class X11Client {
 public:
  explicit X11Client(const X11Display& display)
      : connection_(xcb_connect(display.Name().c_str(), nullptr)) {
    if (xcb_connection_has_error(connection_) != 0) throw std::runtime_error("no display");
  }
  X11Client(const X11Client&) = delete;
  X11Client& operator=(const X11Client&) = delete;
  ~X11Client() { xcb_disconnect(connection_); }

  xcb_connection_t* Connection() { return connection_; }

  void Down(xcb_keycode_t code) { Fake(XCB_KEY_PRESS, code); }
  void Up(xcb_keycode_t code) { Fake(XCB_KEY_RELEASE, code); }
  void Press(xcb_keycode_t code) {
    Down(code);
    Up(code);
  }
  void PressWithControlAndShift(xcb_keycode_t code) {
    Down(key::kControl);
    Down(key::kShift);
    Press(code);
    Up(key::kShift);
    Up(key::kControl);
  }

  // The modifiers that are down or on.
  int Modifiers() {
    const auto asked = xcb_query_pointer(connection_, Root());
    const X11Reply<xcb_query_pointer_reply_t> reply(
        xcb_query_pointer_reply(connection_, asked, nullptr));
    return reply->mask & 0xff;
  }

  // Takes a key combination for this client; false when another has it.
  bool Grab(xcb_keycode_t code, int modifiers) {
    return Done(xcb_grab_key_checked(connection_, 0, Root(), static_cast<std::uint16_t>(modifiers),
                                     code, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
  }
  bool Ungrab(xcb_keycode_t code, int modifiers) {
    return Done(
        xcb_ungrab_key_checked(connection_, code, Root(), static_cast<std::uint16_t>(modifiers)));
  }

  // Changes what is written on a key.
  bool PutOnKey(xcb_keycode_t code, const std::vector<xcb_keysym_t>& symbols) {
    return Done(xcb_change_keyboard_mapping_checked(
        connection_, 1, code, static_cast<std::uint8_t>(symbols.size()), symbols.data()));
  }

  bool MakeModifier(xcb_keycode_t code, int modifier) {
    const auto asked = xcb_get_modifier_mapping(connection_);
    const X11Reply<xcb_get_modifier_mapping_reply_t> now(
        xcb_get_modifier_mapping_reply(connection_, asked, nullptr));
    const int each = now->keycodes_per_modifier;
    const xcb_keycode_t* codes = xcb_get_modifier_mapping_keycodes(now.get());
    std::vector<xcb_keycode_t> changed(codes, codes + 8 * each);
    for (int i = 0; i < 8; ++i) {
      if (modifier == 1 << i) changed[static_cast<std::size_t>(i * each + each - 1)] = code;
    }
    const auto set =
        xcb_set_modifier_mapping(connection_, now->keycodes_per_modifier, changed.data());
    const X11Reply<xcb_set_modifier_mapping_reply_t> reply(
        xcb_set_modifier_mapping_reply(connection_, set, nullptr));
    return reply && reply->status == XCB_MAPPING_STATUS_SUCCESS;
  }

 private:
  xcb_window_t Root() { return xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root; }
  // The display has done it when this returns.
  bool Done(xcb_void_cookie_t asked) {
    return !X11Reply<xcb_generic_error_t>(xcb_request_check(connection_, asked));
  }
  void Fake(std::uint8_t type, xcb_keycode_t code) {
    if (!Done(xcb_test_fake_input_checked(connection_, type, code, XCB_CURRENT_TIME, XCB_NONE, 0, 0,
                                          0))) {
      throw std::runtime_error("the display takes no keys");
    }
  }

  xcb_connection_t* connection_;
};

}  // namespace brenwick
