// Connections with nothing behind them but the script.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/Connections.h"
#include "rehearsal/Transcript.h"

namespace brenwick {

class ScriptedConnections : public Connections {
 public:
  explicit ScriptedConnections(Transcript& transcript) : transcript_(transcript) {}

  std::vector<Connection> Sources() override { return sources_; }
  std::vector<Connection> Engines() override { return engines_; }
  std::vector<SeenApplication> Applications() override { return applications_; }
  bool GroupChats() override { return group_chats_; }

  void TestSource(std::size_t index, const std::string& sentence) override {
    Test("source", index, sentence);
  }
  void TestEngine(std::size_t index, const std::string& sentence) override {
    Test("engine", index, sentence);
  }
  void SwitchApplication(const std::string& name, bool on) override;
  void SetGroupChats(bool on) override;

  // What the script says.
  void SetSources(std::vector<Connection> sources) { sources_ = std::move(sources); }
  void SetEngines(std::vector<Connection> engines) { engines_ = std::move(engines); }
  void SetApplications(std::vector<SeenApplication> applications) {
    applications_ = std::move(applications);
  }

 private:
  void Test(const char* what, std::size_t index, const std::string& sentence) {
    transcript_.Write({{"test", what}, {"index", index}, {"sentence", sentence}});
  }

  Transcript& transcript_;
  std::vector<Connection> sources_;
  std::vector<Connection> engines_;
  std::vector<SeenApplication> applications_;
  bool group_chats_ = false;
};

}  // namespace brenwick
