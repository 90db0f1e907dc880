// Lays out a page: every control that stands on it, in the order in which the form declares them.
#pragma once

#include <QButtonGroup>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <QWidget>
#include <deque>
#include <map>
#include <vector>

#include "controls/Buttons.h"
#include "controls/ComboBox.h"
#include "controls/Labels.h"
#include "controls/ListBox.h"
#include "controls/TextBox.h"
#include "qt/views/Views.h"

namespace brenwick {

// The rules: the page's title is above all. A label stands in front of the box, the option buttons
// or the button that follows it, and names them for those who cannot see; any other label is a
// text of its own. Option buttons that follow each other share a row, and so do buttons, but one
// alone behind a box stands beside it. A frame gathers what follows it. Lists take what room is
// left. Other buttons of an array, which stand on several pages, are at the foot of each.
class PageBuilder {
 public:
  PageBuilder(QWidget& page, Frame& frame, Views& views);

  void Build(const std::vector<Control*>& controls);

 private:
  struct WaitingLabel {
    Label& control;
    QLabel& view;
  };
  enum class Kind { Nothing, Box, Option, Button, Other };

  void Add(Control& control, const Control* next);
  void AddLabel(Label& label);
  void AddBox(QWidget& view, bool wide);
  void AddList(ListBox& list);
  void AddOption(OptionButton& option);
  void AddButton(Button& button, bool alone);
  void AddToFoot(QWidget& view);
  void AddFrame(Frame& frame);
  int AddRow(QWidget& view);
  void AddSharedRow(int column);
  void PlaceLabels();
  void Finish();
  void KeepTabForChosen();
  QWidget& Parent() const;

  QWidget& page_;
  Frame& frame_;
  Views& views_;
  QVBoxLayout* rows_;
  QWidget* group_ = nullptr;       // the frame that gathers, or none
  QGridLayout* grid_ = nullptr;    // where rows go
  QHBoxLayout* shared_ = nullptr;  // the row that option buttons or buttons share
  QHBoxLayout* foot_ = nullptr;
  QWidget* last_box_ = nullptr;
  Label* last_label_ = nullptr;  // of a box
  std::deque<WaitingLabel> waiting_;
  std::map<const OptionGroup*, QButtonGroup*> options_;
  Kind last_ = Kind::Nothing;
  bool stretched_ = false;
};

}  // namespace brenwick
