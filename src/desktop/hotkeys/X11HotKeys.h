// The hotkeys of an X11 desktop: each is grabbed on the root window.
#pragma once

#include <xcb/xcb.h>

#include <QAbstractNativeEventFilter>
#include <QTimer>
#include <list>
#include <vector>

#include "desktop/hotkeys/HotKeySource.h"
#include "desktop/hotkeys/X11Keyboard.h"

namespace brenwick {

// A key that another program holds is asked for again when its control is enabled anew and when the
// keyboard's layout changes.
class X11HotKeys : public HotKeySource, private QAbstractNativeEventFilter {
 public:
  X11HotKeys(frmMain& form, Views& views);
  ~X11HotKeys() override;

  void Arm() override;

 private:
  struct Key {
    explicit Key(HotKeyControl& of) : control(of) {}
    HotKeyControl& control;
    bool wanted = false;
    bool held = false;
    xcb_timestamp_t released = XCB_CURRENT_TIME;
    KeyCombination combination{};
    std::vector<KeyCombination> grabbed;  // with each choice of locks
  };

  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;
  void Follow(Key& key);
  void Take(Key& key);
  void LetGo(Key& key);
  void TakeAnew();
  bool KeyPress(const xcb_key_press_event_t& event);
  bool KeyRelease(const xcb_key_release_event_t& event);

  Views& views_;
  xcb_connection_t* display_;
  xcb_window_t root_;
  int xkb_event_;  // the number of the keyboard extension's events
  X11Keyboard keyboard_;
  std::list<Key> keys_;
  bool armed_ = false;
  QTimer layout_changed_;  // a change of layout comes as many events at once
  QObject presses_;        // what was pressed dies with it
  std::vector<Subscription> subscriptions_;
};

}  // namespace brenwick
