#include "desktop/tray/TraySelection.h"

#include <xcb/xfixes.h>

#include <QCoreApplication>
#include <QGuiApplication>
#include <string>

#include "desktop/x11/X11Reply.h"

namespace brenwick {
namespace {

// Desktops of today have no other screen than 0.
const std::string kSelection = "_NET_SYSTEM_TRAY_S0";
constexpr std::uint8_t kSentByClient = 0x80;

xcb_atom_t AtomOf(xcb_connection_t* connection, const std::string& name) {
  const auto cookie =
      xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.c_str());
  const X11Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, cookie, nullptr));
  return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

}  // namespace

TraySelection::TraySelection() {
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  // A platform without a screen may offer the interface and have no connection.
  if (x11 != nullptr) connection_ = x11->connection();
  if (connection_ == nullptr) return;
  selection_ = AtomOf(connection_, kSelection);
  Watch();
  owned_ = HasOwner();
  QCoreApplication::instance()->installNativeEventFilter(this);
}

TraySelection::~TraySelection() {
  if (auto* application = QCoreApplication::instance()) application->removeNativeEventFilter(this);
}

void TraySelection::Watch() {
  const auto version =
      xcb_xfixes_query_version(connection_, XCB_XFIXES_MAJOR_VERSION, XCB_XFIXES_MINOR_VERSION);
  const X11Reply<xcb_xfixes_query_version_reply_t> reply(
      xcb_xfixes_query_version_reply(connection_, version, nullptr));
  const auto* extension = xcb_get_extension_data(connection_, &xcb_xfixes_id);
  if (!reply || extension == nullptr) return;
  owner_event_ = static_cast<std::uint8_t>(extension->first_event + XCB_XFIXES_SELECTION_NOTIFY);
  const auto root = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
  xcb_xfixes_select_selection_input(connection_, root, selection_,
                                    XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                        XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                        XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
  xcb_flush(connection_);
}

bool TraySelection::HasOwner() const {
  const auto cookie = xcb_get_selection_owner(connection_, selection_);
  const X11Reply<xcb_get_selection_owner_reply_t> reply(
      xcb_get_selection_owner_reply(connection_, cookie, nullptr));
  return reply && reply->owner != XCB_WINDOW_NONE;
}

bool TraySelection::nativeEventFilter(const QByteArray& kind, void* message, qintptr* /*result*/) {
  if (kind != "xcb_generic_event_t") return false;
  const auto* event = static_cast<const xcb_generic_event_t*>(message);
  if (owner_event_ == 0 || (event->response_type & ~kSentByClient) != owner_event_) return false;
  const auto* owner = static_cast<const xcb_xfixes_selection_notify_event_t*>(message);
  if (owner->selection != selection_) return false;
  owned_ = HasOwner();
  if (Changed) Changed();
  return false;
}

}  // namespace brenwick
