// The version check's socket against real servers.
#include "qt/TcpSocket.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTcpServer>
#include <chrono>
#include <string>

#include "pages/WebsitePage.h"
#include "qt/QtEventLoop.h"
#include "support/Fakes.h"
#include "support/TestApplication.h"
#include "unit/qt/WebServer.h"
#include "web/WebAccess.h"

namespace brenwick {
namespace {

constexpr const char* kFailed = "text 73";

class TcpSocketTest : public testing::Test {
 protected:
  TcpSocketTest() {
    texts.Replace(NumberedTexts());
    controls.Serve(access);
  }

  // What txtWebVersion shows in the end.
  std::string Ask(const std::string& host) {
    access.WebGetVersionInfo(host);
    WaitUntil([&] { return !form.txtWebVersion.Text().empty(); });
    return form.txtWebVersion.Text();
  }

  template <typename Condition>
  void WaitUntil(Condition condition) {
    const auto end_of_patience = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (!condition()) {
      ASSERT_LT(std::chrono::steady_clock::now(), end_of_patience);
      loop.Sleep(std::chrono::milliseconds(1));
      loop.DoEvents();
      controls.ShowSocketState();
      if (const std::string& state = form.txtWinSockStatus.Text();
          states.empty() || states.back() != state) {
        states.push_back(state);
      }
    }
  }

  TestApplication<QCoreApplication> application;

  FakeWorld world;
  frmMain form;
  TextTable texts{world.log};
  WebsiteControls controls{form};
  WebAccess access{world.log, texts, world.status, controls, controls};
  EndOfProgram end;
  QtEventLoop loop{end};
  TcpSocket socket{end, form.wscHttp};
  std::vector<std::string> states;  // as they were shown, without repetitions
};

TEST_F(TcpSocketTest, FetchesTheFileOfARealServer) {
  WebServer server("file");
  EXPECT_EQ(Ask(server.Host()), "3.1.0.201\r\n");
  form.wscHttp.Close();
  EXPECT_EQ(form.wscHttp.State(), SocketState::Closed);
}

TEST_F(TcpSocketTest, TakesTheBodyOfAnErrorPage) {
  WebServer server("no-file");
  EXPECT_NE(Ask(server.Host()).find("404"), std::string::npos);
}

TEST_F(TcpSocketTest, SendsTheRequestAndNothingElse) {
  WebServer server("echo");
  EXPECT_EQ(Ask(server.Host()), "GET /download/version.txt HTTP/1.1\r\nHost: " + server.Host() +
                                    "\r\nConnection: close\r\nAccept: */*\r\n\r\n");
}

TEST_F(TcpSocketTest, WaitsForASlowAnswer) {
  WebServer server("slow");
  EXPECT_EQ(Ask(server.Host()), "3.1.0.201\r\n");
  EXPECT_NE(std::find(states.begin(), states.end(), "Connected"), states.end());
}

TEST_F(TcpSocketTest, AsksAgainAfterAnAnswer) {
  WebServer first("file");
  ASSERT_EQ(Ask(first.Host()), "3.1.0.201\r\n");
  access.SetAnswer("");
  WebServer second("slow");
  EXPECT_EQ(Ask(second.Host()), "3.1.0.201\r\n");
}

TEST_F(TcpSocketTest, FailsWhereNobodyListens) {
  QTcpServer listener;
  ASSERT_TRUE(listener.listen(QHostAddress::LocalHost));
  const std::string host = "127.0.0.1:" + std::to_string(listener.serverPort());
  listener.close();
  EXPECT_EQ(Ask(host), kFailed);
  EXPECT_EQ(form.wscHttp.State(), SocketState::Error);
}

TEST_F(TcpSocketTest, FailsForANameThatDoesNotResolve) {
  // No name server is asked for a name with so long a part.
  EXPECT_EQ(Ask(std::string(64, 'x') + ".invalid"), kFailed);
  EXPECT_EQ(form.wscHttp.State(), SocketState::Error);
}

TEST_F(TcpSocketTest, FailsForAPortThatIsNone) { EXPECT_EQ(Ask("127.0.0.1:70000"), kFailed); }

TEST_F(TcpSocketTest, TakesWhatCameOfABodyThatWasCutOff) {
  WebServer server("cut-in-body");
  EXPECT_EQ(Ask(server.Host()), "3.1.0");
}

TEST_F(TcpSocketTest, EndsTheProgramForHeadersThatWereCutOff) {
  WebServer server("cut-in-headers");
  EXPECT_THROW(Ask(server.Host()), ProgramEnd);
  ASSERT_EQ(world.screen.boxes.size(), 1U);
  EXPECT_NE(world.screen.boxes[0].text.find("WebGetVersionInfo"), std::string::npos);
  EXPECT_TRUE(end.Ended());
}

TEST_F(TcpSocketTest, ComesToAnEndWhenTheConnectionIsReset) {
  WebServer server("reset");
  EXPECT_EQ(Ask(server.Host()), "3.1.0");
}

TEST_F(TcpSocketTest, HangsUpOnAnEndlessAnswer) {
  WebServer server("endless");
  EXPECT_EQ(Ask(server.Host()), kFailed);
  EXPECT_EQ(server.Line(), "hung up on");
  EXPECT_EQ(form.wscHttp.State(), SocketState::Closed);
}

TEST_F(TcpSocketTest, RaisesNothingAfterItWasClosed) {
  WebServer server("silent");
  access.WebGetVersionInfo(server.Host());
  WaitUntil([&] { return form.wscHttp.State() == SocketState::Connected; });
  int events = 0;
  form.wscHttp.OnClose = form.wscHttp.OnError = [&] { ++events; };
  form.wscHttp.Close();
  EXPECT_EQ(server.Line(), "hung up on");
  loop.DoEvents();
  EXPECT_EQ(events, 0);
}

TEST_F(TcpSocketTest, ClosesInTheMiddleOfAnEvent) {
  WebServer server("echo");
  form.wscHttp.OnConnect = [this] { form.wscHttp.Close(); };
  access.WebGetVersionInfo(server.Host());
  WaitUntil([&] { return form.wscHttp.State() == SocketState::Closed; });
  EXPECT_EQ(form.wscHttp.GetData(), "");
}

}  // namespace
}  // namespace brenwick
