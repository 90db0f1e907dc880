// The program on the user's desktop: every interface of the core with its implementation, and the
// views.
#pragma once

#include <QObject>
#include <QString>
#include <memory>
#include <string>

#include "app/Program.h"
#include "desktop/DesktopConnections.h"
#include "desktop/DesktopSystem.h"
#include "desktop/EndSignals.h"
#include "desktop/Instance.h"
#include "desktop/SocketWatch.h"
#include "desktop/feed/FeedMessenger.h"
#include "desktop/hotkeys/HotKeySource.h"
#include "desktop/purple/PurpleMessenger.h"
#include "desktop/tray/DesktopTray.h"
#include "files/IniStore.h"
#include "files/SystemFolders.h"
#include "linux/AutostartStore.h"
#include "linux/notifications/NotificationMessenger.h"
#include "qt/EndOfProgram.h"
#include "qt/QtEventLoop.h"
#include "qt/QtScreen.h"
#include "qt/SystemClock.h"
#include "qt/TcpSocket.h"
#include "qt/views/MainWindowView.h"
#include "qt/views/StatusView.h"
#include "qt/views/TimerDriver.h"
#include "qt/views/Views.h"
#include "sources/SourceHub.h"
#include "voice/QueuedVoice.h"

namespace brenwick {

class Desktop {
 public:
  // commandLine: the arguments behind the program's name. first: no other Brenwick runs.
  Desktop(Instance& instance, const std::string& commandLine, bool first);

  // Runs the program to its end.
  void Run();

 private:
  void Do(Verb verb, int repeat);
  void SaveWithoutDisplay();
  void CloseWithoutDisplay();
  void SpeechIsAnother();

  EndOfProgram end_;
  SystemClock clock_;
  SystemFolders folders_;
  IniStore ini_;
  AutostartStore store_;
  // Receives what the voice posts, and drops what is still posted when it ends.
  QObject speech_news_;
  QueuedVoice voice_;
  SocketWatch watch_;
  PurpleMessenger purple_;
  NotificationMessenger notifications_;
  FeedMessenger feed_;
  SourceHub messenger_;
  DesktopConnections connections_;
  QtScreen screen_;
  DesktopTray tray_;
  QtEventLoop loop_;
  DesktopSystem system_;
  Program program_;
  Views views_;
  MainWindowView window_;
  StatusView status_;
  TimerDriver timers_;
  TcpSocket socket_;
  EndSignals signals_;
  std::unique_ptr<HotKeySource> hot_keys_;
  Instance& instance_;
};

}  // namespace brenwick
