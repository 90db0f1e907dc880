// The messengers and engines of the desktop program, for the page of connections.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "desktop/purple/PurpleMessenger.h"
#include "linux/notifications/NotificationMessenger.h"
#include "platform/Connections.h"
#include "platform/RegistryStore.h"
#include "sources/SourceHub.h"

namespace brenwick {

class DesktopConnections : public Connections {
 public:
  // The key of the store that keeps the choices of this page.
  static constexpr const char* kKey = "Software\\Brenwick\\Connections";

  // The engines that speak; none in a second start of the program.
  struct SpeechEngines {
    std::function<std::vector<Connection>()> Describe = [] { return std::vector<Connection>(); };
    std::function<void(std::size_t, const std::string&)> Test = [](std::size_t,
                                                                   const std::string&) {};
  };

  // All arguments outlive this object, which observes the sources' Changed.
  DesktopConnections(const SourceHub& sources, NotificationMessenger& notifications,
                     PurpleMessenger& purple, SpeechEngines engines, RegistryStore& store);

  std::vector<Connection> Sources() override;
  std::vector<Connection> Engines() override { return engines_.Describe(); }
  void TestSource(std::size_t index, const std::string& sentence) override;
  void TestEngine(std::size_t index, const std::string& sentence) override;
  std::vector<SeenApplication> Applications() override { return notifications_.Applications(); }
  void SwitchApplication(const std::string& name, bool on) override;
  bool GroupChats() override;
  void SetGroupChats(bool on) override;

 private:
  const SourceHub& sources_;
  NotificationMessenger& notifications_;
  PurpleMessenger& purple_;
  SpeechEngines engines_;
  RegistryStore& store_;
};

}  // namespace brenwick
