// Lays out a page: every control that stands on it, in the order in which the form declares them.
#pragma once

#include <QButtonGroup>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <QWidget>
#include <vector>

#include "controls/Buttons.h"
#include "controls/ComboBox.h"
#include "controls/Labels.h"
#include "controls/ListBox.h"
#include "controls/TextBox.h"
#include "desktop/qt/Views.h"

namespace brenwick {

// The rules: a label in front of a box stands beside it, and a button behind a combo box, or behind
// any box in a frame, at its other side; option buttons that follow each other share a row, and so
// do buttons; a frame gathers what follows it; lists take what room is left; everything else has a
// row of its own.
class PageBuilder {
 public:
  PageBuilder(QWidget& page, Views& views);

  void Add(Control& control);
  // After the last control.
  void Finish();

 private:
  enum class Kind { Nothing, Label, Box, Option, Button, Other };

  void AddLabel(Label& label);
  void AddBox(Control& box, QWidget& view);
  void AddOption(OptionButton& option);
  void AddButton(Button& button);
  void AddFrame(Frame& frame);
  void AddRow(QWidget& view, int stretch = 0);
  void PlaceLabel();
  void EndGroup();
  QWidget& Parent() const;

  QWidget& page_;
  Views& views_;
  QVBoxLayout* rows_;
  QWidget* group_ = nullptr;       // the frame that gathers, or none
  QGridLayout* grid_ = nullptr;    // where rows go
  QHBoxLayout* shared_ = nullptr;  // the row that option buttons or buttons share
  QLabel* waiting_label_ = nullptr;
  Control* waiting_label_control_ = nullptr;
  Kind last_ = Kind::Nothing;
  bool stretched_ = false;
};

}  // namespace brenwick
