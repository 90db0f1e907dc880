// One of the clients that stand behind the program's messenger.
#pragma once

#include <functional>
#include <string>

#include "platform/Connections.h"
#include "platform/MessengerClient.h"

namespace brenwick {

// The program calls each operation on its own thread; none of them lets an event run, and only
// InstantMessage throws. Attach waits a second at most for the system's bus or the client, and
// Detach and Test may wait for them as well; the others do not wait.
class MessengerSource : public MessengerClient {
 public:
  // The state of the connection to this client, as it is known at this moment.
  virtual Connection Describe() const = 0;

  // True for the sign-in name of a contact whose conversations this client can open now.
  virtual bool Knows(const std::string& contact) = 0;

  // Sends the sentence the longest way that a message of this source can go without a second
  // person, and raises it as a text from a contact that has no sign-in name and is called like the
  // source. Nothing comes where the way is broken.
  virtual void Test(const std::string& sentence) = 0;

  // Called on the program's thread when Describe may have another answer. The handler may ask for
  // it; it does not attach or detach.
  std::function<void()> Changed;
};

}  // namespace brenwick
