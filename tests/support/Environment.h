// A variable of the environment, for as long as this lives.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace brenwick {

class Environment {
 public:
  Environment(std::string name, const std::string& value) : name_(std::move(name)) {
    if (const char* former = std::getenv(name_.c_str())) former_ = former;
    ::setenv(name_.c_str(), value.c_str(), 1);
  }
  ~Environment() {
    if (former_) {
      ::setenv(name_.c_str(), former_->c_str(), 1);
    } else {
      ::unsetenv(name_.c_str());
    }
  }
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;

 private:
  std::string name_;
  std::optional<std::string> former_;
};

}  // namespace brenwick
