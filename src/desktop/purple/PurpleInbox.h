// What arrives at a client that is built on libpurple, and which of it is for the user's ears.
#pragma once

#include <QString>
#include <QVariantList>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <unordered_map>

#include "desktop/purple/PurpleBus.h"
#include "desktop/purple/PurplePeople.h"

namespace brenwick {

// A message, or what somebody offers: a file or a chat.
struct Arrival {
  int account = 0;
  MessengerContact from;
  std::string text;
};

// Each takes the values of the signal that is called like it. Nothing is what the user shall not
// hear: own words, what the client or a machine says, and what was said before the user signed on.
class PurpleInbox {
 public:
  PurpleInbox(PurpleBus& bus, PurplePeople& people) : bus_(bus), people_(people) {}

  // The user has signed on with this account: just now, where the client does not tell when.
  void SignOn(int account);
  void Forget();

  std::optional<Arrival> ReceivedImMsg(const QVariantList& values);
  std::optional<Arrival> ReceivedChatMsg(const QVariantList& values);
  std::optional<Arrival> FileRecvRequest(const QVariantList& values);
  std::optional<Arrival> ChatInvited(const QVariantList& values);

 private:
  struct Said {
    QString text;
    std::int64_t time = 0;
  };

  // Seconds since 1970 at which it was sent; 0 where the client does not tell.
  std::int64_t TimeOf(int account, const QString& sender, const QString& message);
  bool IsOld(int account, const QString& sender, const QString& message);
  const Said& SaidIn(int handle);

  PurpleBus& bus_;
  PurplePeople& people_;
  std::map<int, std::int64_t> signed_on_;  // when, by account, for as long as it matters
  std::unordered_map<int, Said> said_;     // by handle, what was asked for since the sign-on
};

}  // namespace brenwick
