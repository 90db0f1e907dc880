// Notifications of the desktop as a messenger: those of the applications that the user has switched
// on become messages.
//
// A private connection to the session bus watches what applications ask the desktop to show.
// Nothing is ever sent on it, and no notification is answered, marked or closed.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "linux/BusConnecting.h"
#include "linux/BusConnection.h"
#include "linux/ReadinessWatch.h"
#include "sources/MessengerSource.h"
#include "sources/NotificationRules.h"
#include "sources/SeenApplications.h"

namespace brenwick {

class NotificationMessenger : public MessengerSource {
 public:
  static constexpr const char* kName = "Notifications";

  // The store and the watch outlive this object.
  NotificationMessenger(std::string busAddress, RegistryStore& store, ReadinessWatch& watch);
  ~NotificationMessenger() override;

  // Asked at each notification with the application's name, in lower case. Where it answers true,
  // the notification is not raised, since another messenger tells what the application has to say.
  std::function<bool(const std::string& application)> HeardElsewhere;

  // The applications that have shown a notification, in the order of their names. Changed is called
  // when there is a new one.
  std::vector<SeenApplication> Applications() const { return applications_.All(); }
  void SwitchApplication(const std::string& name, bool on);

  // Waits a second at most for the bus. An answer that comes later is taken then; a bus that cannot
  // be had, or goes, is looked for every kPause.
  void Attach(MessengerListener& listener) override;
  void Detach() override;
  // Signed in while an application is switched on and its notifications can be seen.
  std::int32_t MyStatus() override;
  std::string MyName() override { return {}; }
  void InstantMessage(const std::string& contact) override;

  Connection Describe() const override;
  bool Knows(const std::string& /*contact*/) override { return false; }
  // Shows a notification, which comes back as the desktop gets it.
  void Test(const std::string& sentence) override;

  // A bus may drop one connection and stay; a new one is tried after this time.
  static constexpr std::chrono::minutes kPause{1};

 private:
  void Connect();
  void TakeResult();
  void Met();
  void TryAgain();
  void Ready();
  void Hear(const Notification& notification);
  void Fail(const std::string& why);
  void StateMayHaveChanged();

  std::string bus_address_;
  ReadinessWatch& watch_;
  SeenApplications applications_;
  NotificationRules rules_{applications_};
  MessengerListener* listener_ = nullptr;
  std::unique_ptr<BusConnecting> connecting_;
  std::shared_ptr<BusConnection> monitor_;
  std::unique_ptr<BusConnection> tester_;
  std::string failure_;
  std::int32_t told_ = MSTATE_OFFLINE;  // the own state that the program knows
};

}  // namespace brenwick
