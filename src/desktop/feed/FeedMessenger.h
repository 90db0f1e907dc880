// The feed: a messenger whose events come from scripts, over D-Bus. It is the only way in which a
// script can make the program talk.
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QString>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "linux/BusConnection.h"
#include "qt/EndOfProgram.h"
#include "sources/FeedRules.h"
#include "sources/MessengerSource.h"

namespace brenwick {

// On the session bus this is org.brenwick.Brenwick1.
class FeedMessenger : public QDBusVirtualObject, public MessengerSource {
  Q_OBJECT
 public:
  static constexpr const char* kName = "D-Bus";

  // busAddress: the address of the same bus, for a second connection that tries the feed.
  FeedMessenger(EndOfProgram& end, QDBusConnection bus, std::string busAddress,
                std::function<FeedRules::Time()> now = std::chrono::steady_clock::now);
  ~FeedMessenger() override;

  void Attach(MessengerListener& listener) override;
  void Detach() override;
  // Signed in from the first event on.
  std::int32_t MyStatus() override;
  std::string MyName() override { return {}; }
  // Asks the scripts to open the conversation, by the signal ConversationWanted.
  void InstantMessage(const std::string& contact) override;

  Connection Describe() const override;
  // True for contacts of whom a script has raised an event.
  bool Knows(const std::string& contact) override;
  void Test(const std::string& sentence) override;

  QString introspect(const QString& path) const override;
  bool handleMessage(const QDBusMessage& call, const QDBusConnection& connection) override;

 private:
  Q_SLOT void Disconnected();
  std::optional<FeedError> Refusal(const QDBusMessage& call, const FeedEvent& event, bool is_test);
  void Answer(const QDBusMessage& call, const std::optional<FeedError>& refusal);
  void Raise(const FeedEvent& event);
  void RaiseTest(const std::string& text);
  void Fail(std::string why);
  void Come();

  EndOfProgram& end_;
  QDBusConnection bus_;
  std::string bus_address_;
  FeedRules rules_;
  MessengerListener* listener_ = nullptr;
  bool has_name_ = false;
  bool has_come_ = false;  // an event
  std::string failure_;
  std::unique_ptr<BusConnection> tester_;  // tries the feed
};

}  // namespace brenwick
