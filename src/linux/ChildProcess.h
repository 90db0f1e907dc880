// Another program that works for this one.
#pragma once

#include <sys/types.h>

#include <mutex>
#include <string>
#include <thread>

namespace brenwick {

class ChildProcess {
 public:
  // Starts the program with the descriptor as its standard input. It shares the standard output
  // and the error output, and gets no other descriptor: it would keep a sound device from being
  // let go. Raises kFileNotFound with the reason where that fails.
  ChildProcess(const std::string& program, int standard_input);
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;
  // Kills it.
  ~ChildProcess();

  pid_t Id() const { return id_; }

 private:
  void AwaitEnd();

  pid_t id_;
  std::mutex mutex_;
  bool ended_ = false;
  // Waits for its end, so that a process that dies is no zombie until somebody asks for it.
  std::thread reaper_;
};

}  // namespace brenwick
