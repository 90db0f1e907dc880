// What an application asks the desktop to show, whatever way the request came by.
#pragma once

#include <cstddef>
#include <string>

namespace brenwick {

// All texts are valid UTF-8.
struct Notification {
  std::string sender;         // the connection it came from, as the bus names it
  std::string application;    // as it calls itself; may be empty
  std::string desktop_entry;  // "org.gnome.Geary"; often empty
  std::string category;       // "im.received"; often empty
  std::string summary;
  std::string body;       // with markup
  bool replaces = false;  // it takes the place of one that is still shown
  bool is_gauge = false;  // it shows how far something is, or how loud
};

// Texts are cut where they are longer than this many bytes.
inline constexpr std::size_t kMostOfNotification = 64 * 1024;

}  // namespace brenwick
