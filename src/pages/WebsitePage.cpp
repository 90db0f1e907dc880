#include "pages/WebsitePage.h"

#include <cstddef>
#include <iterator>

namespace brenwick {
namespace {

// By the numbers of the states.
constexpr const char* kStateNames[] = {
    "Closed",         "Open",          "Listening",  "Connection pending",
    "Resolving host", "Host resolved", "Connecting", "Connected",
    "Closing",        "Error",
};

}  // namespace

void WebsiteControls::Connect(const std::string& host, int port) {
  form_.wscHttp.SetLocalPort(0);
  form_.wscHttp.Connect(host, port);
}

void WebsiteControls::ShowSocketState() {
  const auto state = static_cast<std::size_t>(form_.wscHttp.State());
  form_.txtWinSockStatus.SetText(state < std::size(kStateNames) ? kStateNames[state] : "");
}

void WebsiteControls::Serve(WebAccess& access) {
  form_.wscHttp.OnConnect = [&access] { access.wscHttp_Connect(); };
  form_.wscHttp.OnDataArrival = [&access] { access.wscHttp_DataArrival(); };
  form_.wscHttp.OnClose = [&access] { access.wscHttp_Close(); };
  form_.wscHttp.OnError = [&access] { access.wscHttp_Error(); };
}

WebsitePage::WebsitePage(frmMain& form, VersionCheck& check) {
  form.cmdUpdate.Click = [&check] { check.UpdateCheck(true); };
  form.cmdWebSite.Click = [&check] { check.cmdWebSite_Click(); };
}

}  // namespace brenwick
