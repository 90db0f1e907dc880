#include "web/WebAccess.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <tuple>
#include <utility>

#include "base/Failure.h"
#include "base/Text.h"

namespace brenwick {
namespace {

constexpr const char* kModule = "WebAccess";
constexpr const char* kProcedure = "WebGetVersionInfo";
constexpr std::string_view kScheme = "http://";
constexpr std::string_view kVersionFile = "/download/version.txt";
constexpr std::string_view kEndOfHeaders = "\r\n\r\n";
constexpr int kHttpPort = 80;
constexpr int kHighestPort = 65535;

// "HOST" and the path of an address.
std::pair<std::string, std::string> SplitAddress(std::string_view address) {
  if (address.starts_with(kScheme)) address.remove_prefix(kScheme.size());
  const std::size_t slash = std::min(address.find('/'), address.size());
  return {std::string(address.substr(0, slash)), std::string(address.substr(slash))};
}

// The port behind the last colon, or the one of HTTP; the host is left without it. Text behind the
// colon that is not a port stays part of the host, which then is not found.
int TakePort(std::string& host) {
  const std::size_t colon = host.rfind(':');
  if (colon == std::string::npos) return kHttpPort;
  int port = 0;
  const char* end = host.data() + host.size();
  const auto [stop, error] = std::from_chars(host.data() + colon + 1, end, port);
  if (error != std::errc() || stop != end || port < 1 || port > kHighestPort) return kHttpPort;
  host.erase(colon);
  return port;
}

}  // namespace

void WebAccess::WebGetVersionInfo(const std::string& server) {
  log_.Trap(kModule, kProcedure, [&] {
    progress_.SetHourglass(true);
    std::tie(host_, path_) =
        SplitAddress(std::string(kScheme) + server + std::string(kVersionFile));
    response_.clear();
    done_ = false;
    steps_arriving_ = 0;
    socket_.Close();
    std::string host = host_;
    const int port = TakePort(host);
    socket_.Connect(host, port);
    display_.ShowSocketState();
    progress_.SetHourglass(false);
  });
}

void WebAccess::CountStep() {
  if (!response_.empty() && !done_ && ++steps_arriving_ > kMostSteps) GiveUp();
}

void WebAccess::SetAnswer(const std::string& text) {
  answer_ = text;
  display_.ShowVersion(answer_);
}

void WebAccess::wscHttp_Connect() {
  log_.Trap(kModule, kProcedure, [&] {
    socket_.SendData("GET " + path_ + " HTTP/1.1\r\nHost: " + host_ +
                     "\r\nConnection: close\r\nAccept: */*\r\n\r\n");
    display_.ShowSocketState();
  });
}

void WebAccess::wscHttp_DataArrival() {
  IgnoringFailures([&] { response_ += socket_.GetData(); });
  if (response_.size() > kLongestAnswer) GiveUp();
  display_.ShowSocketState();
}

// Only what stands behind the headers counts; whether they announce an error does not.
void WebAccess::wscHttp_Close() {
  log_.Trap(kModule, kProcedure, [&] {
    if (!done_) {
      const std::size_t end = response_.find(kEndOfHeaders);
      if (end == std::string::npos) throw Failure(kInvalidCall);
      response_.erase(0, end + kEndOfHeaders.size());
      SetAnswer(Repaired(response_));
      done_ = true;
    }
    display_.ShowSocketState();
  });
}

void WebAccess::wscHttp_Error() {
  log_.Trap(kModule, kProcedure, [&] {
    display_.ShowSocketState();
    SetAnswer(texts_.LoadText(73));
  });
}

// The rest of the answer is not waited for.
void WebAccess::GiveUp() {
  done_ = true;
  socket_.Close();
  wscHttp_Error();
}

}  // namespace brenwick
