#include "desktop/DesktopConnections.h"

#include <utility>

namespace brenwick {
namespace {

constexpr const char* kGroupChats = "GroupChats";

}  // namespace

DesktopConnections::DesktopConnections(const SourceHub& sources,
                                       NotificationMessenger& notifications,
                                       PurpleMessenger& purple, SpeechEngines engines,
                                       RegistryStore& store)
    : sources_(sources),
      notifications_(notifications),
      purple_(purple),
      engines_(std::move(engines)),
      store_(store) {
  for (MessengerSource* source : sources_.All()) {
    source->Changed = [this] {
      if (Changed) Changed();
    };
  }
  purple_.SetGroupChats(GroupChats());
}

std::vector<Connection> DesktopConnections::Sources() {
  std::vector<Connection> all;
  for (const MessengerSource* source : sources_.All()) all.push_back(source->Describe());
  return all;
}

void DesktopConnections::TestSource(std::size_t index, const std::string& sentence) {
  sources_.All().at(index)->Test(sentence);
}

void DesktopConnections::TestEngine(std::size_t index, const std::string& sentence) {
  engines_.Test(index, sentence);
}

void DesktopConnections::SwitchApplication(const std::string& name, bool on) {
  notifications_.SwitchApplication(name, on);
}

bool DesktopConnections::GroupChats() {
  const auto stored = store_.ReadValue(kKey, kGroupChats);
  return stored && stored->text == "1";
}

void DesktopConnections::SetGroupChats(bool on) {
  purple_.SetGroupChats(on);
  if (on == GroupChats()) return;
  store_.WriteValue(kKey, kGroupChats,
                    {.type = ValueKind::Text, .text = on ? "1" : "0", .number = 0});
}

}  // namespace brenwick
