// The older kind of notification area: the owner of a selection of the X server.
#pragma once

#include <xcb/xcb.h>

#include <QAbstractNativeEventFilter>
#include <cstdint>
#include <functional>

namespace brenwick {

// Without an X server there is never an owner.
class TraySelection : public QAbstractNativeEventFilter {
 public:
  TraySelection();
  ~TraySelection() override;

  bool Owned() const { return owned_; }
  // Called when the owner has changed.
  std::function<void()> Changed;

  bool nativeEventFilter(const QByteArray& kind, void* message, qintptr* result) override;

 private:
  bool HasOwner() const;
  void Watch();

  xcb_connection_t* connection_ = nullptr;
  xcb_atom_t selection_ = XCB_ATOM_NONE;
  std::uint8_t owner_event_ = 0;
  bool owned_ = false;
};

}  // namespace brenwick
