// The base of all controls.
//
// A control has two doors. The program uses its properties and is told of events through the
// std::function members (Click, Change, LostFocus, …). The user's actions come in through the
// members that begin with User; they do nothing while the control is disabled or hidden. A view
// mirrors a control: it observes Changed and knocks at the user's door.
#pragma once

#include <string>
#include <vector>

#include "base/Observers.h"

namespace brenwick {

class Control;

// Every control of a window, in the order in which they are declared.
class ControlList {
 public:
  ControlList() = default;
  ControlList(const ControlList&) = delete;
  ControlList& operator=(const ControlList&) = delete;

  const std::vector<Control*>& Controls() const { return controls_; }
  // The control with that name, and with that index where it belongs to a control array; nullptr
  // when there is none.
  Control* Find(const std::string& name, int index = -1) const;

 protected:
  ~ControlList() = default;

 private:
  friend class Control;
  std::vector<Control*> controls_;
};

// The place of a control: its window and the number of the page that it stands on.
struct Place {
  ControlList& window;
  int page;
};

// Controls that stand on no page.
inline constexpr int kNoPage = -1;

class Control {
 public:
  // index: the place in a control array, −1 for a control of its own.
  Control(Place place, std::string name, int index = -1);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control();

  const std::string& Name() const { return name_; }
  int Index() const { return index_; }
  int Page() const { return page_; }

  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled) { Update(enabled_, enabled); }
  bool Visible() const { return visible_; }
  void SetVisible(bool visible) { Update(visible_, visible); }
  const std::string& ToolTip() const { return tooltip_; }
  void SetToolTip(std::string tooltip) { Update(tooltip_, std::move(tooltip)); }

  // Puts the input focus into the control.
  void SetFocus() const { FocusWanted(); }

  // The user's way in is open.
  bool CanUse() const { return enabled_ && visible_; }

  Observers<> Changed;      // something that a view shows is no longer what it was
  Observers<> FocusWanted;  // the program put the focus into this control

 protected:
  // Stores a property's new value and tells the views when it differs; true when it did.
  template <typename Value>
  bool Update(Value& property, Value value) {
    if (property == value) return false;
    property = std::move(value);
    Changed();
    return true;
  }

 private:
  ControlList& window_;
  std::string name_;
  int index_;
  int page_;
  bool enabled_ = true;
  bool visible_ = true;
  std::string tooltip_;
};

// A control that shows a caption.
class CaptionedControl : public Control {
 public:
  CaptionedControl(Place place, std::string name, std::string caption, int index = -1)
      : Control(place, std::move(name), index), caption_(std::move(caption)) {}

  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption) { Update(caption_, std::move(caption)); }

 private:
  std::string caption_;
};

}  // namespace brenwick
