// The observers of something that happens again and again, such as a change of a control.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <utility>

namespace brenwick {

// Ends an observation when it goes out of scope. It may outlive what it observes.
class Subscription {
 public:
  Subscription() = default;
  explicit Subscription(std::function<void()> end) : end_(std::move(end)) {}
  Subscription(Subscription&& other) noexcept : end_(std::exchange(other.end_, nullptr)) {}
  Subscription& operator=(Subscription&& other) noexcept {
    std::swap(end_, other.end_);
    return *this;
  }
  Subscription(const Subscription&) = delete;
  Subscription& operator=(const Subscription&) = delete;
  ~Subscription() {
    if (end_) end_();
  }

 private:
  std::function<void()> end_;
};

// Calls every observer, in the order in which they began. An observer may end its own or another
// observation, or begin a new one, while it is being called; a new one is not called for the change
// that is under way.
template <typename... Arguments>
class Observers {
 public:
  using Observer = std::function<void(Arguments...)>;

  [[nodiscard]] Subscription Observe(Observer observer) {
    const std::size_t key = next_key_++;
    observers_->emplace(key, std::move(observer));
    return Subscription([list = std::weak_ptr(observers_), key] {
      if (const auto observers = list.lock()) observers->erase(key);
    });
  }

  void operator()(Arguments... arguments) const {
    const auto list = observers_;
    const std::size_t end = next_key_;
    for (auto at = list->begin(); at != list->end() && at->first < end;) {
      const std::size_t key = at->first;
      const Observer observer = at->second;
      observer(arguments...);
      at = list->upper_bound(key);
    }
  }

 private:
  std::shared_ptr<std::map<std::size_t, Observer>> observers_ =
      std::make_shared<std::map<std::size_t, Observer>>();
  std::size_t next_key_ = 0;
};

}  // namespace brenwick
