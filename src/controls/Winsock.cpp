#include "controls/Winsock.h"

namespace brenwick {

void Winsock::Connect(const std::string& host, int port) {
  if (driver_ != nullptr) driver_->Connect(host, port);
}

void Winsock::SendData(const std::string& data) {
  if (driver_ != nullptr) driver_->SendData(data);
}

std::string Winsock::GetData() { return driver_ == nullptr ? std::string() : driver_->GetData(); }

void Winsock::Close() {
  if (driver_ != nullptr) driver_->Close();
  SetState(SocketState::Closed);
}

}  // namespace brenwick
