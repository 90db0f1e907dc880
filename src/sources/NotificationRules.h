// Decides which notifications are read aloud, and as whose words.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/MessengerClient.h"
#include "sources/Notification.h"
#include "sources/RepeatFilter.h"
#include "sources/SeenApplications.h"

namespace brenwick {

// A notification as the message that it stands for.
struct NotifiedMessage {
  MessengerContact contact;
  std::string text;
};

// Belongs to the program's thread, as everything that it calls does.
class NotificationRules {
 public:
  // The sign-in name of a notification's contact is APPLICATION:NAME.
  // applications: outlives this object.
  explicit NotificationRules(SeenApplications& applications) : applications_(applications) {}

  // Asked with the application's name in lower case. Where it answers true, another source raises
  // what this application has to say, and the notification is not read.
  std::function<bool(const std::string& application)> HeardElsewhere;
  // Called when an application shows its first notification.
  std::function<void()> ApplicationAdded;

  // The connection, as the bus names it, by which Brenwick shows its own notifications; empty while
  // there is none. They are read in the name of `own_name`.
  void SetOwn(std::string sender, std::string own_name);

  // The message to raise; nothing where the notification is not read: the user has not switched
  // the application on, it is a gauge, another source tells of it, or all of it was said before.
  std::optional<NotifiedMessage> Read(const Notification& notification);

 private:
  std::optional<NotifiedMessage> ReadMessage(const Notification& notification,
                                             const std::string& application);
  std::optional<NotifiedMessage> ReadMail(const Notification& notification,
                                          const std::string& application);

  SeenApplications& applications_;
  RepeatFilter said_;
  std::string own_sender_;
  std::string own_name_;
};

}  // namespace brenwick
