// Nothing that the program is connected to.
#pragma once

#include "platform/Connections.h"

namespace brenwick {

class AbsentConnections : public Connections {
 public:
  std::vector<Connection> Sources() override { return {}; }
  std::vector<Connection> Engines() override { return {}; }
  void TestSource(std::size_t, const std::string&) override {}
  void TestEngine(std::size_t, const std::string&) override {}
  std::vector<SeenApplication> Applications() override { return {}; }
  void SwitchApplication(const std::string&, bool) override {}
  bool GroupChats() override { return false; }
  void SetGroupChats(bool) override {}
};

}  // namespace brenwick
