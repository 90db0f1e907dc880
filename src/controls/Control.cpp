#include "controls/Control.h"

#include <algorithm>
#include <iterator>

namespace brenwick {

Control* ControlList::Find(const std::string& name, int index) const {
  const auto found = std::find_if(controls_.begin(), controls_.end(), [&](const Control* control) {
    return control->Index() == index && control->Name() == name;
  });
  return found == controls_.end() ? nullptr : *found;
}

Control::Control(Place place, std::string name, int index)
    : window_(place.window), name_(std::move(name)), index_(index), page_(place.page) {
  window_.controls_.push_back(this);
}

// Searches from the end, because controls are destroyed in the reverse order of their construction.
Control::~Control() {
  std::vector<Control*>& controls = window_.controls_;
  const auto found = std::find(controls.rbegin(), controls.rend(), this);
  controls.erase(std::prev(found.base()));
}

}  // namespace brenwick
