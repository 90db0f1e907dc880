#include "desktop/LostDisplay.h"

#include <cstdlib>
#include <utility>

namespace brenwick {
namespace {

constexpr int kDisplayLost = 1;

std::function<void()> save_at_exit;

void SaveAtExit() {
  if (!save_at_exit) return;
  const auto save = std::exchange(save_at_exit, nullptr);
  save();
  // No destructor may run: widgets would use the display that has gone.
  std::_Exit(kDisplayLost);
}

}  // namespace

LostDisplay::LostDisplay(std::function<void()> save) {
  static const int registered = std::atexit(SaveAtExit);
  if (registered == 0) save_at_exit = std::move(save);
}

LostDisplay::~LostDisplay() { save_at_exit = nullptr; }

}  // namespace brenwick
