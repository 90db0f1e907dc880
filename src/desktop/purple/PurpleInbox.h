// Decides which of the things that arrive at a client of libpurple the user hears.
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

// Each operation takes the values of the signal of the same name. It answers nothing for what the
// user shall not hear: the user's own words, words of the client or of a machine, and words from
// before the sign-on.
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

  // The time of sending, in seconds since 1970; 0 where the client does not tell.
  std::int64_t TimeOf(int account, const QString& sender, const QString& message);
  bool IsOld(int account, const QString& sender, const QString& message);
  const Said& SaidIn(int handle);

  PurpleBus& bus_;
  PurplePeople& people_;
  std::map<int, std::int64_t> signed_on_;  // when, by account, for as long as it matters
  std::unordered_map<int, Said> said_;     // by handle, what was asked for since the sign-on
};

}  // namespace brenwick
