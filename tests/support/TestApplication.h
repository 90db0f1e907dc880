// Qt's application object for as long as a test lasts.
#pragma once

#include <QCoreApplication>

namespace brenwick {

// Kind: QCoreApplication, QGuiApplication or QApplication; the latter two on the platform that is
// named, by itself without a screen, wherever the tests run.
template <typename Kind>
class TestApplication {
 public:
  explicit TestApplication(const char* platform = "offscreen")
      : chosen_(qputenv("QT_QPA_PLATFORM", platform)) {}

 private:
  bool chosen_;
  int count_ = 1;
  char name_[8] = "desktop";
  char* values_[2] = {name_, nullptr};
  Kind application_{count_, values_};
};

}  // namespace brenwick
