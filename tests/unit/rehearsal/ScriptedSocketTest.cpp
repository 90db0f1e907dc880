#include "rehearsal/ScriptedSocket.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "forms/frmMain.h"
#include "unit/rehearsal/RecordingTranscript.h"

namespace brenwick {
namespace {

class ScriptedSocketTest : public testing::Test {
 protected:
  ScriptedSocketTest() {
    driver_.Drive(socket_);
    const auto note = [this](const char* event) {
      events_.push_back(event + std::to_string(static_cast<int>(socket_.State())));
    };
    socket_.OnConnect = [note] { note("connect "); };
    socket_.OnDataArrival = [this, note] { note(("data " + socket_.GetData() + " ").c_str()); };
    socket_.OnClose = [note] { note("close "); };
    socket_.OnError = [note] { note("error "); };
  }

  std::vector<std::string> EventsOf(int steps) {
    events_.clear();
    for (int i = 0; i < steps; ++i) driver_.Step();
    return events_;
  }

  using Events = std::vector<std::string>;
  RecordingTranscript transcript_;
  frmMain form_;
  Winsock& socket_ = form_.wscHttp;
  ScriptedSocket driver_{transcript_};
  Events events_;
};

TEST_F(ScriptedSocketTest, AReplyComesAtTheStepThatIsTold) {
  driver_.web = {ScriptedWeb::Kind::Reply, "body", 3};
  socket_.Connect("web.example", 80);
  EXPECT_EQ(socket_.State(), SocketState::Connecting);
  EXPECT_EQ(EventsOf(2), Events());
  EXPECT_EQ(EventsOf(1), (Events{"connect 7", "data body 7", "close 8"}));
  EXPECT_EQ(EventsOf(5), Events());
  EXPECT_EQ(transcript_.lines, Events{R"({"connect":{"host":"web.example","port":80}})"});
}

TEST_F(ScriptedSocketTest, WhatIsSentIsWritten) {
  socket_.SendData("GET\r\n");
  EXPECT_EQ(transcript_.lines, Events{R"({"send":"GET\r\n"})"});
}

TEST_F(ScriptedSocketTest, AnErrorComesAtTheFirstStep) {
  driver_.web = {ScriptedWeb::Kind::Error, "", 1};
  socket_.Connect("web.example", 80);
  EXPECT_EQ(EventsOf(2), Events{"error 9"});
}

TEST_F(ScriptedSocketTest, ASilentWebNeverAnswers) {
  socket_.Connect("web.example", 80);
  EXPECT_EQ(EventsOf(2000), Events());
  EXPECT_EQ(socket_.State(), SocketState::Connecting);
}

TEST_F(ScriptedSocketTest, NothingComesBeforeAConnect) {
  driver_.web = {ScriptedWeb::Kind::Reply, "body", 1};
  EXPECT_EQ(EventsOf(3), Events());
}

TEST_F(ScriptedSocketTest, NothingComesAfterAClose) {
  driver_.web = {ScriptedWeb::Kind::Reply, "body", 2};
  socket_.Connect("web.example", 80);
  EXPECT_EQ(EventsOf(1), Events());
  socket_.Close();
  EXPECT_EQ(EventsOf(3), Events());
  EXPECT_EQ(socket_.State(), SocketState::Closed);
}

TEST_F(ScriptedSocketTest, ACloseInAHandlerEndsTheReply) {
  driver_.web = {ScriptedWeb::Kind::Reply, "body", 1};
  socket_.OnConnect = [this] { socket_.Close(); };
  socket_.Connect("web.example", 80);
  EXPECT_EQ(EventsOf(2), Events());
  EXPECT_EQ(socket_.State(), SocketState::Closed);
  EXPECT_EQ(socket_.GetData(), "");
}

TEST_F(ScriptedSocketTest, ASecondConnectGetsAReplyOfItsOwn) {
  driver_.web = {ScriptedWeb::Kind::Reply, "body", 2};
  for (int i = 0; i < 2; ++i) {
    socket_.Connect("web.example", 80);
    EXPECT_EQ(EventsOf(2).size(), 3U);
  }
}

}  // namespace
}  // namespace brenwick
