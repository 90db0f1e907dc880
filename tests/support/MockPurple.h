// A client that is built on libpurple, as far as a program on its bus can see it.
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QMap>
#include <QThread>
#include <functional>
#include <map>
#include <numeric>
#include <stdexcept>
#include <utility>
#include <vector>

#include "desktop/purple/PurpleBus.h"

namespace brenwick {

// The primitives of its statuses.
enum Primitive {
  kOffline = 1,
  kAvailable,
  kUnavailable,
  kInvisible,
  kAway,
  kExtendedAway,
  kMobile,
  kMood,
};

// It answers on a thread of its own, like the process that it stands for. What it is made of is
// changed only by Do.
class MockPurple {
 public:
  struct Account {
    QString name;
    QString alias;
    int primitive = kAvailable;
    bool connected = true;
    int login_time = 0;
  };
  struct Buddy {
    int account = 0;
    QString name;
    QString alias;
    int primitive = kOffline;
    bool idle = false;
  };
  struct Message {
    QString text;
    int time = 0;
  };
  struct Conversation {
    int type = 1;
    int account = 0;
    QString name;
    QString own_nick;
    std::vector<int> history;  // the newest first
  };
  struct Transfer {
    int account = 0;
    QString remote;
    QString file;
    int type = 2;
  };

  explicit MockPurple(const QDBusConnection& bus) : bus_(bus), object_(*this) {
    object_.moveToThread(&thread_);
    thread_.start();
  }
  ~MockPurple() {
    thread_.quit();
    thread_.wait();
  }

  void Come() {
    Do([this] {
      if (!bus_.registerVirtualObject(kPurplePath, &object_) ||
          !bus_.registerService(kPurpleService)) {
        throw std::runtime_error("the mock has no place on the bus");
      }
    });
  }
  void Go() {
    Do([this] {
      bus_.unregisterService(kPurpleService);
      bus_.unregisterObject(kPurplePath);
    });
  }
  void Do(const std::function<void()>& change) {
    QMetaObject::invokeMethod(&object_, change, Qt::BlockingQueuedConnection);
  }
  void Signal(const char* name, const QVariantList& values) {
    QDBusMessage signal = QDBusMessage::createSignal(kPurplePath, kPurpleInterface, name);
    signal.setArguments(values);
    bus_.send(signal);
  }

  // What a contact or the user does, as the client tells it.
  void SetState(int buddy, int primitive) {
    Buddy& changed = buddies.at(buddy);
    const int before = changed.primitive;
    Do([&] { changed.primitive = primitive; });
    if ((before == kOffline) == (primitive == kOffline)) {
      Signal("BuddyStatusChanged", {buddy, StatusOf(buddy, before), StatusOf(buddy, primitive)});
    } else {
      Signal(primitive == kOffline ? "BuddySignedOff" : "BuddySignedOn", {buddy});
    }
  }
  void SetIdle(int buddy, bool idle) {
    const int before = buddies.at(buddy).idle ? 1 : 0;
    Do([&] { buddies.at(buddy).idle = idle; });
    Signal("BuddyIdleChanged", {buddy, before, idle ? 1 : 0});
  }
  void SetOwnState(int account, int primitive) {
    const int before = accounts.at(account).primitive;
    Do([&] { accounts.at(account).primitive = primitive; });
    Signal("AccountStatusChanged",
           {account, StatusOf(account, before), StatusOf(account, primitive)});
  }
  void SignOn(int account) {
    Do([&] { accounts.at(account).connected = true; });
    Signal("AccountSignedOn", {account});
  }
  void SignOff(int account) {
    Do([&] {
      accounts.at(account).connected = false;
      for (auto& [number, buddy] : buddies) {
        if (buddy.account == account) buddy.primitive = kOffline;
      }
    });
    Signal("AccountSignedOff", {account});
  }
  void Say(const QString& sender, const QString& message, unsigned flags = 2, int account = 1) {
    Signal("ReceivedImMsg", {account, sender, message, 0, flags});
  }

  // How many calls have come.
  int Calls() {
    int calls = 0;
    Do([&] { calls = std::accumulate(calls_.begin(), calls_.end(), 0); });
    return calls;
  }
  // How often this method was called.
  int CallsOf(const QString& method) {
    int calls = 0;
    Do([&] { calls = calls_.value(method); });
    return calls;
  }

  // Handles of different things are different numbers.
  static int StatusOf(int whose, int primitive) { return 20000 + whose * 10 + primitive; }

  QString ui = "gtk-gaim";
  std::map<int, Account> accounts;
  std::map<int, Buddy> buddies;
  std::map<int, Message> messages;
  std::map<int, Conversation> conversations;
  std::map<int, Transfer> transfers;
  QString wrong_answer;  // the method that answers in another type
  QString silent_from;   // from this method on nothing is answered
  QStringList opened;    // conversations that were presented, "account id"

 private:
  static constexpr int kPresence = 10000;
  static constexpr int kType = 30000;
  static constexpr int kOpened = 40000;
  static constexpr int kOwnPresence = 50000;

  class Object : public QDBusVirtualObject {
   public:
    explicit Object(MockPurple& purple) : purple_(purple) {}
    QString introspect(const QString& /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage& call, const QDBusConnection& /*bus*/) override {
      return purple_.Answer(call);
    }

   private:
    MockPurple& purple_;
  };

  bool Answer(const QDBusMessage& call) {
    ++calls_[call.member()];
    silent_ = silent_ || call.member() == silent_from;
    if (silent_from.isEmpty()) silent_ = false;
    if (silent_) return true;
    try {
      const QVariant answer = call.member() == wrong_answer
                                  ? QVariant(qlonglong{1})
                                  : Value(call.member().mid(6), call.arguments());
      bus_.send(answer.isValid() ? call.createReply(answer) : call.createReply());
    } catch (const std::out_of_range&) {
      bus_.send(call.createErrorReply("im.pidgin.purple.InvalidHandle", "there is no such handle"));
    }
    return true;
  }

  QVariant Value(const QString& method, const QVariantList& values) {
    const int handle = values.value(0).toInt();
    if (method.startsWith("Account")) return OfAccount(method, handle);
    if (method.startsWith("Buddy")) return OfBuddy(method, handle);
    if (method.startsWith("Conv")) return OfConversation(method, handle, values);
    if (method.startsWith("Find")) return Found(method, values);
    if (method.startsWith("Xfer")) return OfTransfer(method, handle);
    if (method == "CoreGetUi") return ui;
    if (method == "CoreGetVersion") return "2.14.12";
    if (method == "Normalize") return values[1].toString().section('/', 0, 0).toLower();
    if (method == "PresenceGetActiveStatus") {
      return StatusOf(handle - kPresence, buddies.at(handle - kPresence).primitive);
    }
    if (method == "PresenceIsIdle") return buddies.at(handle - kPresence).idle ? 1 : 0;
    if (method == "PresenceGetLoginTime") return accounts.at(handle - kOwnPresence).login_time;
    if (method == "StatusGetType") return kType + handle % 10;
    if (method == "StatusTypeGetPrimitive") return handle - kType;
    throw std::out_of_range("method");
  }

  QVariant OfAccount(const QString& method, int handle) {
    if (method == "AccountsGetAllActive") {
      QList<int> handles;
      for (const auto& [number, account] : accounts) handles.push_back(number);
      return QVariant::fromValue(handles);
    }
    const Account& account = accounts.at(handle);
    if (method == "AccountIsConnected") return account.connected ? 1 : 0;
    if (method == "AccountGetUsername") return account.name;
    if (method == "AccountGetAlias") return account.alias;
    if (method == "AccountGetPresence") return kOwnPresence + handle;
    if (method == "AccountGetActiveStatus") return StatusOf(handle, account.primitive);
    throw std::out_of_range("method");
  }

  QVariant OfBuddy(const QString& method, int handle) {
    const Buddy& buddy = buddies.at(handle);
    if (method == "BuddyGetAccount") return buddy.account;
    if (method == "BuddyGetName") return buddy.name;
    if (method == "BuddyGetAlias") return buddy.alias.isEmpty() ? buddy.name : buddy.alias;
    if (method == "BuddyGetPresence") return kPresence + handle;
    throw std::out_of_range("method");
  }

  QVariant OfConversation(const QString& method, int handle, const QVariantList& values) {
    if (method == "ConversationNew") {
      opening_.push_back(values[1].toString() + ' ' + values[2].toString());
      return kOpened + static_cast<int>(opening_.size()) - 1;
    }
    if (method == "ConversationPresent") {
      opened.push_back(opening_.at(handle - kOpened));
      return {};
    }
    if (method == "ConversationMessageGetMessage") return messages.at(handle).text;
    if (method == "ConversationMessageGetTimestamp") return messages.at(handle).time;
    const Conversation& conversation = conversations.at(handle);
    if (method == "ConversationGetName") return conversation.name;
    if (method == "ConversationGetChatData") return handle;
    if (method == "ConvChatGetNick") return conversation.own_nick;
    if (method == "ConversationGetMessageHistory") {
      return QVariant::fromValue(
          QList<int>(conversation.history.begin(), conversation.history.end()));
    }
    throw std::out_of_range("method");
  }

  QVariant Found(const QString& method, const QVariantList& values) {
    if (method == "FindConversationWithAccount") {
      for (const auto& [number, each] : conversations) {
        if (each.type == values[0].toInt() && each.account == values[2].toInt() &&
            values[1].toString().startsWith(each.name)) {
          return number;
        }
      }
      return 0;
    }
    const int account = values[0].toInt();
    const QString name = values[1].toString().section('/', 0, 0);
    QList<int> handles;
    for (const auto& [number, buddy] : buddies) {
      if (buddy.account != account) continue;
      if (name.isEmpty() || buddy.name == name) handles.push_back(number);
    }
    if (method == "FindBuddies") return QVariant::fromValue(handles);
    return handles.isEmpty() ? 0 : handles.front();
  }

  QVariant OfTransfer(const QString& method, int handle) {
    const Transfer& transfer = transfers.at(handle);
    if (method == "XferGetType") return transfer.type;
    if (method == "XferGetAccount") return transfer.account;
    if (method == "XferGetRemoteUser") return transfer.remote;
    if (method == "XferGetFilename") return transfer.file;
    throw std::out_of_range("method");
  }

  QDBusConnection bus_;
  QThread thread_;
  Object object_;
  bool silent_ = false;
  QMap<QString, int> calls_;
  QStringList opening_;
};

}  // namespace brenwick
