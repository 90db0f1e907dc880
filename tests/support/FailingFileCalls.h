// The system's file calls with one that goes wrong.
#pragma once

#include <unistd.h>

#include <cerrno>
#include <string>
#include <vector>

#include "files/FileCalls.h"

namespace brenwick {

// Counts the calls; `error` is what number `failing` (from 1) fails with. Where `dies` is set, the
// process ends there instead, as a crash would end it.
class FailingFileCalls : public FileCalls {
 public:
  int failing = 0;
  int error = EIO;
  bool dies = false;
  // Calls of these names fail whenever they come: "Link", "Fsync", …
  std::string always;
  // The most bytes that one Write takes; 0 is no limit.
  std::size_t short_write = 0;

  int Count() const { return static_cast<int>(names_.size()); }
  // The names of the calls, in their order.
  const std::vector<std::string>& CallNames() const { return names_; }
  // The name of the call that failed; empty when none did.
  const std::string& Failed() const { return failed_; }

  int Open(const std::string& path, OpenMode mode) override {
    return Fails("Open") ? -1 : FileCalls::Open(path, mode);
  }
  std::ptrdiff_t Read(int descriptor, void* bytes, std::size_t count) override {
    return Fails("Read") ? -1 : FileCalls::Read(descriptor, bytes, count);
  }
  std::ptrdiff_t Write(int descriptor, const void* bytes, std::size_t count) override {
    if (Fails("Write")) return -1;
    const bool cut = short_write != 0 && short_write < count;
    return FileCalls::Write(descriptor, bytes, cut ? short_write : count);
  }
  int Fchmod(int descriptor) override {
    return Fails("Fchmod") ? -1 : FileCalls::Fchmod(descriptor);
  }
  int Fsync(int descriptor) override { return Fails("Fsync") ? -1 : FileCalls::Fsync(descriptor); }
  int Close(int descriptor) override {
    const bool fails = Fails("Close");
    const int failure = errno;
    const int result = FileCalls::Close(descriptor);
    if (!fails) return result;
    errno = failure;
    return -1;
  }
  int Link(const std::string& path, const std::string& new_path) override {
    return Fails("Link") ? -1 : FileCalls::Link(path, new_path);
  }
  int Rename(const std::string& path, const std::string& new_path) override {
    return Fails("Rename") ? -1 : FileCalls::Rename(path, new_path);
  }
  int Unlink(const std::string& path) override {
    return Fails("Unlink") ? -1 : FileCalls::Unlink(path);
  }
  int Mkdir(const std::string& path) override {
    return Fails("Mkdir") ? -1 : FileCalls::Mkdir(path);
  }

 private:
  bool Fails(const std::string& name) {
    names_.push_back(name);
    const bool now = Count() == failing;
    if (now && dies) ::_exit(0);
    if (!now && name != always) return false;
    if (now) failed_ = name;
    errno = error;
    return true;
  }

  std::vector<std::string> names_;
  std::string failed_;
};

}  // namespace brenwick
