// Shows the user how a version check goes.
#pragma once

#include <string>

namespace brenwick {

class VersionDisplay {
 public:
  VersionDisplay() = default;
  VersionDisplay(const VersionDisplay&) = delete;
  VersionDisplay& operator=(const VersionDisplay&) = delete;
  virtual ~VersionDisplay() = default;

  // The newest version as the server names it, why it is not known, or "" while nothing is known.
  virtual void ShowVersion(const std::string& text) = 0;
  // The state in which the socket is now.
  virtual void ShowSocketState() = 0;
  // On the button that starts a check: the number of steps, or its caption.
  virtual void ShowOnButton(const std::string& caption) = 0;
};

}  // namespace brenwick
