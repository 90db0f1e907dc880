// The Website page: the version check, its socket, and the web site.
#pragma once

#include <string>

#include "forms/frmMain.h"
#include "web/VersionCheck.h"
#include "web/VersionDisplay.h"
#include "web/WebAccess.h"

namespace brenwick {

// The form's socket and the boxes of the page, as the version check uses them.
class WebsiteControls : public WebAccess::Socket, public VersionDisplay {
 public:
  explicit WebsiteControls(frmMain& form) : form_(form) {}

  // From now on the events of the socket reach the access.
  void Serve(WebAccess& access);

  void Connect(const std::string& host, int port) override;
  void SendData(const std::string& data) override { form_.wscHttp.SendData(data); }
  std::string GetData() override { return form_.wscHttp.GetData(); }
  void Close() override { form_.wscHttp.Close(); }
  bool Failed() const override { return form_.wscHttp.State() == SocketState::Error; }

  void ShowVersion(const std::string& text) override { form_.txtWebVersion.SetText(text); }
  void ShowSocketState() override;
  void ShowOnButton(const std::string& caption) override { form_.cmdUpdate.SetCaption(caption); }

 private:
  frmMain& form_;
};

class WebsitePage {
 public:
  // Takes over the page's buttons.
  WebsitePage(frmMain& form, VersionCheck& check);
};

}  // namespace brenwick
