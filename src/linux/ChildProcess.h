// A program that runs as a child of this one.
#pragma once

#include <sys/types.h>

#include <mutex>
#include <string>
#include <thread>

namespace brenwick {

class ChildProcess {
 public:
  // Starts the program with the descriptor as its standard input. The child shares the standard
  // output and the error output, and inherits no other descriptor, since that would keep a sound
  // device open. Raises kFileNotFound with the reason where that fails.
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
  // Awaits the end of the child, so that a child that dies does not stay a zombie.
  std::thread reaper_;
};

}  // namespace brenwick
