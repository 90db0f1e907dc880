#include "rehearsal/MessengerScript.h"

#include <map>
#include <set>
#include <string>

#include "rehearsal/Script.h"

namespace brenwick {
namespace {

using Event = std::function<void(MessengerListener&)>;

MessengerContact ContactOf(const nlohmann::json& step) {
  return {TextOf(step, "email", ""), TextOf(step, "name", "")};
}

Event TextReceived(const nlohmann::json& step) {
  return [contact = ContactOf(step), header = TextOf(step, "header", ""),
          text = TextOf(step, "text", "")](MessengerListener& listener) {
    listener.OnTextReceived(contact, header, text);
  };
}

Event UserStateChanged(const nlohmann::json& step) {
  return [contact = ContactOf(step), state = NumberOf(step, "state", 0)](
             MessengerListener& listener) { listener.OnUserStateChanged(contact, state); };
}

Event UserStateFound(const nlohmann::json& step) {
  return [contact = ContactOf(step), state = NumberOf(step, "state", 0)](
             MessengerListener& listener) { listener.OnUserStateFound(contact, state); };
}

Event LocalStateChangeResult(const nlohmann::json& step) {
  return [state = NumberOf(step, "state", 0)](MessengerListener& listener) {
    listener.OnLocalStateChangeResult(state);
  };
}

Event AppInviteReceived(const nlohmann::json& step) {
  return [contact = ContactOf(step), app = TextOf(step, "appName", "")](
             MessengerListener& listener) { listener.OnAppInviteReceived(contact, app); };
}

Event FileTransferInviteReceived(const nlohmann::json& step) {
  return [contact = ContactOf(step), file = TextOf(step, "fileName", "")](
             MessengerListener& listener) { listener.OnFileTransferInviteReceived(contact, file); };
}

Event NewerClientAvailable(const nlohmann::json& step) {
  return [address = TextOf(step, "address", "")](MessengerListener& listener) {
    listener.OnNewerClientAvailable(address);
  };
}

// Events of the client that a script may raise though the program does nothing about them.
const std::set<std::string>& OtherEvents() {
  static const std::set<std::string> events = {
      "OnAppInviteAccepted",
      "OnAppShutdown",
      "OnBuddyPropertyChangeResult",
      "OnFindResult",
      "OnListAddResult",
      "OnLogoff",
      "OnLogonResult",
      "OnMessagePrivacyChangeResult",
      "OnTrustChanged",
      "OnUnreadEmailChanged",
      "OnUserDropped",
      "OnUserFriendlyNameChangeResult",
      "OnUserJoin",
      "OnUserLeave",
      "OnNewSessionRequest",
      "OnNotificationReceived",
      "OnPrimaryServiceChanged",
      "OnPromptChangeResult",
      "OnRequestURLPostResult",
      "OnRequestURLResult",
      "OnSendResult",
      "OnServiceLogoff",
      "OnSessionStateChange",
      "OnSPMessageReceived",
  };
  return events;
}

struct EventWithArguments {
  std::set<std::string> members;
  Event (*read)(const nlohmann::json&);
};

const std::map<std::string, EventWithArguments>& EventsWithArguments() {
  static const std::map<std::string, EventWithArguments> events = {
      {"OnTextReceived", {{"email", "name", "header", "text"}, TextReceived}},
      {"OnUserStateChanged", {{"email", "name", "state"}, UserStateChanged}},
      {"OnUserStateFound", {{"email", "name", "state"}, UserStateFound}},
      {"OnLocalStateChangeResult", {{"state"}, LocalStateChangeResult}},
      {"OnAppInviteReceived", {{"email", "name", "appName"}, AppInviteReceived}},
      {"OnFileTransferInviteReceived", {{"email", "name", "fileName"}, FileTransferInviteReceived}},
      {"OnNewerClientAvailable", {{"address"}, NewerClientAvailable}},
  };
  return events;
}

void CheckArguments(const nlohmann::json& step, const std::string& event,
                    std::set<std::string> members) {
  members.insert("raise");
  CheckMembers(step, event, members);
}

}  // namespace

Event EventOf(const nlohmann::json& step) {
  const std::string name = TextOf(step, "raise");
  const auto found = EventsWithArguments().find(name);
  if (found != EventsWithArguments().end()) {
    CheckArguments(step, name, found->second.members);
    return found->second.read(step);
  }
  if (!OtherEvents().contains(name)) throw ScriptFailure("unknown event \"" + name + "\"");
  CheckArguments(step, name, {});
  return [name](MessengerListener& listener) { listener.OnOtherEvent(name); };
}

}  // namespace brenwick
