#include "web/WebAccess.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "pages/WebsitePage.h"
#include "support/Fakes.h"

namespace brenwick {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kHeaders = "HTTP/1.1 200 OK\r\nContent-Type: text/plain\r\n\r\n";

class WebAccessTest : public testing::Test {
 protected:
  WebAccessTest() {
    texts.Replace(NumberedTexts());
    controls.Serve(access);
  }

  // A request that has been answered up to here.
  void BeginAnswer(const std::string& data) {
    access.WebGetVersionInfo("web.example");
    socket.Accept();
    socket.Arrive(data);
  }
  const std::string& Version() const { return form.txtWebVersion.Text(); }
  const std::string& Status() const { return form.txtWinSockStatus.Text(); }
  std::string ConnectedTo(const std::string& server) {
    socket.calls.clear();
    access.WebGetVersionInfo(server);
    return socket.calls.back();
  }
  // What the error report named; empty without one.
  std::string Reported() const {
    if (world.screen.boxes.empty()) return "";
    const std::string& text = world.screen.boxes.back().text;
    return text.substr(text.find("Module"));
  }
  static constexpr const char* kReport =
      "Module: WebAccess\r\nProcedure: WebGetVersionInfo\r\n\r\n";

  FakeWorld world;
  frmMain form;
  TextTable texts{world.log};
  WebsiteControls controls{form};
  WebAccess access{world.log, texts, world.status, controls, controls};
  FakeSocket socket{form.wscHttp};
};

TEST_F(WebAccessTest, ConnectsAnewFromAnyPort) {
  form.wscHttp.SetLocalPort(7);
  access.WebGetVersionInfo("web.example");
  EXPECT_EQ(socket.calls, (Texts{"close ", "connect web.example:80 from 0"}));
  EXPECT_EQ(Status(), "Connecting");
  EXPECT_EQ(world.screen.pointers, (std::vector<Pointer>{Pointer::Hourglass, Pointer::Default}));
}

TEST_F(WebAccessTest, AsksWithThreeHeadersAndNoOther) {
  access.WebGetVersionInfo("web.example");
  socket.Accept();
  ASSERT_EQ(socket.calls.size(), 3U);
  EXPECT_EQ(socket.calls[2],
            "send GET /download/version.txt HTTP/1.1\r\nHost: web.example\r\n"
            "Connection: close\r\nAccept: */*\r\n\r\n");
  EXPECT_EQ(Status(), "Connected");
}

TEST_F(WebAccessTest, AServerMayNameItsPort) {
  EXPECT_EQ(ConnectedTo("web.example:8080"), "connect web.example:8080 from 0");
  EXPECT_EQ(ConnectedTo("web.example:65535"), "connect web.example:65535 from 0");
  socket.Accept();
  EXPECT_NE(socket.calls.back().find("\r\nHost: web.example:65535\r\n"), std::string::npos);
}

TEST_F(WebAccessTest, WhatIsNoPortStaysWithTheHost) {
  for (const std::string server : {"web:0", "web:65536", "web:-1", "web:80x", "web:x", "web:"}) {
    EXPECT_EQ(ConnectedTo(server), "connect " + server + ":80 from 0");
  }
}

TEST_F(WebAccessTest, AServerMayLieBelowAPath) {
  EXPECT_EQ(ConnectedTo("web.example/brenwick"), "connect web.example:80 from 0");
  socket.Accept();
  EXPECT_TRUE(socket.calls.back().starts_with(
      "send GET /brenwick/download/version.txt HTTP/1.1\r\nHost: web.example\r\n"));
}

TEST_F(WebAccessTest, TheBodyIsTheVersionOnceTheServerHasClosed) {
  BeginAnswer("HTTP/1.1 404 Not Found\r\nContent-Length: 1\r\n\r\n3.1.0.201\r\n\r\nx");
  EXPECT_EQ(Version(), "");
  socket.Finish();
  EXPECT_EQ(Version(), "3.1.0.201\r\n\r\nx");
  EXPECT_EQ(Status(), "Closing");
}

TEST_F(WebAccessTest, AnAnswerMayArriveInSingleBytes) {
  BeginAnswer("");
  for (const char byte : kHeaders + std::string("3.1.0.201")) socket.Arrive({&byte, 1});
  socket.Finish();
  EXPECT_EQ(Version(), "3.1.0.201");
}

TEST_F(WebAccessTest, AnAnswerMayBeCutAnywhere) {
  const std::string answer = kHeaders + std::string("3.1.0.201 \xC3\xA9");
  for (std::size_t cut = 0; cut <= answer.size(); ++cut) {
    access.SetAnswer("");
    BeginAnswer(answer.substr(0, cut));
    socket.Arrive(answer.substr(cut));
    socket.Finish();
    EXPECT_EQ(Version(), "3.1.0.201 \xC3\xA9") << "cut at " << cut;
  }
}

TEST_F(WebAccessTest, ABodyThatIsNoTextIsRepaired) {
  BeginAnswer(kHeaders + std::string("3\xFF.1\xC3"));
  socket.Finish();
  EXPECT_EQ(Version(), "3\xEF\xBF\xBD.1\xEF\xBF\xBD");
}

TEST_F(WebAccessTest, ARequestForgetsTheAnswerBefore) {
  BeginAnswer(kHeaders + std::string("3"));
  BeginAnswer(kHeaders + std::string("4"));
  socket.Finish();
  EXPECT_EQ(Version(), "4");
  BeginAnswer(kHeaders + std::string("5"));
  socket.Finish();
  EXPECT_EQ(Version(), "5");
}

TEST_F(WebAccessTest, DataThatCannotBeTakenIsPassedOver) {
  BeginAnswer(kHeaders);
  form.txtWinSockStatus.SetText("");
  socket.failing = "get";
  socket.Arrive("3.1");
  EXPECT_EQ(Status(), "Connected");
  EXPECT_EQ(Reported(), "");
  socket.failing = "";
  socket.Arrive(".0.201");
  socket.Finish();
  EXPECT_EQ(Version(), "3.1.0.201");
}

TEST_F(WebAccessTest, AConnectionThatCannotBeTriedIsReported) {
  socket.failing = "connect";
  EXPECT_THROW(access.WebGetVersionInfo("web.example"), ProgramEnd);
  EXPECT_EQ(Reported(), kReport);
}

TEST_F(WebAccessTest, ARequestThatCannotBeSentIsReported) {
  access.WebGetVersionInfo("web.example");
  socket.failing = "send";
  EXPECT_THROW(socket.Accept(), ProgramEnd);
  EXPECT_EQ(Reported(), kReport);
}

class NoEmptyLineTest : public WebAccessTest, public testing::WithParamInterface<const char*> {};

TEST_P(NoEmptyLineTest, IsReported) {
  BeginAnswer(GetParam());
  EXPECT_THROW(socket.Finish(), ProgramEnd);
  EXPECT_EQ(Reported(), kReport);
  EXPECT_EQ(Version(), "");
}

INSTANTIATE_TEST_SUITE_P(WebAccess, NoEmptyLineTest,
                         testing::Values("", "HTTP/1.1 200 OK\r\n3.1.0.201", "3.1.0.201\n\n",
                                         "\r\n\r"));

TEST_F(WebAccessTest, TheSecondCloseOnlyShowsTheState) {
  BeginAnswer(kHeaders + std::string("3.1.0.201"));
  socket.Finish();
  form.txtWinSockStatus.SetText("");
  socket.Finish();
  EXPECT_EQ(Version(), "3.1.0.201");
  EXPECT_EQ(Status(), "Closing");
  EXPECT_EQ(Reported(), "");
}

TEST_F(WebAccessTest, AFailureIsShownInTheVersionsPlace) {
  access.WebGetVersionInfo("web.example");
  socket.Fail();
  EXPECT_EQ(Version(), "text 73");
  EXPECT_EQ(Status(), "Error");
}

TEST_F(WebAccessTest, AFailureAfterTheAnswerTakesItsPlace) {
  BeginAnswer(kHeaders + std::string("3.1.0.201"));
  socket.Finish();
  socket.Fail();
  EXPECT_EQ(Version(), "text 73");
  EXPECT_EQ(Status(), "Error");
}

TEST_F(WebAccessTest, TheLongestAnswerIsTaken) {
  std::string answer = kHeaders + std::string("3.1.0.201");
  answer.resize(WebAccess::kLongestAnswer, ' ');
  BeginAnswer(answer);
  socket.Finish();
  EXPECT_EQ(Version().substr(0, 10), "3.1.0.201 ");
}

TEST_F(WebAccessTest, ALongerAnswerIsGivenUp) {
  std::string answer = kHeaders + std::string("3.1.0.201");
  answer.resize(WebAccess::kLongestAnswer, ' ');
  BeginAnswer(answer);
  EXPECT_EQ(Version(), "");
  socket.Arrive(" ");
  EXPECT_EQ(Version(), "text 73");
  EXPECT_EQ(socket.calls.back(), "close ");
  EXPECT_EQ(Status(), "Closed");
  socket.Finish();
  EXPECT_EQ(Version(), "text 73");
  EXPECT_EQ(Reported(), "");
}

TEST_F(WebAccessTest, AnAnswerThatDoesNotEndIsGivenUp) {
  BeginAnswer("H");
  for (int step = 0; step < WebAccess::kMostSteps; ++step) access.CountStep();
  EXPECT_EQ(Version(), "");
  access.CountStep();
  EXPECT_EQ(Version(), "text 73");
  EXPECT_EQ(socket.calls.back(), "close ");
  EXPECT_EQ(Status(), "Closed");
}

TEST_F(WebAccessTest, TheStepsOfAnAnswerBeginWithIt) {
  access.WebGetVersionInfo("web.example");
  for (int step = 0; step < 3 * WebAccess::kMostSteps; ++step) access.CountStep();
  EXPECT_EQ(Version(), "");
  BeginAnswer("H");
  for (int step = 0; step < WebAccess::kMostSteps; ++step) access.CountStep();
  BeginAnswer("H");
  access.CountStep();
  EXPECT_EQ(Version(), "");
}

TEST_F(WebAccessTest, TheStepsOfAnAnswerEndWithIt) {
  BeginAnswer(kHeaders + std::string("3.1.0.201"));
  socket.Finish();
  for (int step = 0; step <= WebAccess::kMostSteps; ++step) access.CountStep();
  EXPECT_EQ(Version(), "3.1.0.201");
  EXPECT_NE(socket.calls.back(), "close ");
}

TEST_F(WebAccessTest, NamesTheStateOfTheSocket) {
  const Texts names = {"Closed",         "Open",          "Listening",  "Connection pending",
                       "Resolving host", "Host resolved", "Connecting", "Connected",
                       "Closing",        "Error"};
  for (std::size_t state = 0; state < names.size(); ++state) {
    form.wscHttp.SetState(static_cast<SocketState>(state));
    controls.ShowSocketState();
    EXPECT_EQ(Status(), names[state]);
  }
  for (const int state : {10, -1}) {
    form.txtWinSockStatus.SetText("before");
    form.wscHttp.SetState(static_cast<SocketState>(state));
    controls.ShowSocketState();
    EXPECT_EQ(Status(), "");
  }
}

}  // namespace
}  // namespace brenwick
