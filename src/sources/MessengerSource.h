// One of the clients that stand behind the program's messenger: it can be looked at and tried.
#pragma once

#include <functional>
#include <string>

#include "platform/Connections.h"
#include "platform/MessengerClient.h"

namespace brenwick {

class MessengerSource : public MessengerClient {
 public:
  virtual Connection Describe() const = 0;

  // True for the sign-in name of a contact whose conversations this client can open now.
  virtual bool Knows(const std::string& contact) = 0;

  // Sends the sentence the longest way that a message of this source can go without a second
  // person, and raises it as a text from a contact that has no sign-in name and is called like the
  // source. Nothing comes where the way is broken.
  virtual void Test(const std::string& sentence) = 0;

  // Called on the program's thread when Describe has another answer.
  std::function<void()> Changed;
};

}  // namespace brenwick
