#include "desktop/qt/PageBuilder.h"

#include <QGroupBox>

#include "desktop/qt/ButtonViews.h"
#include "desktop/qt/ComboView.h"
#include "desktop/qt/ListView.h"
#include "desktop/qt/Mnemonics.h"
#include "desktop/qt/Strings.h"
#include "desktop/qt/TextView.h"

namespace brenwick {
namespace {

enum Column { kLabelColumn = 0, kFieldColumn = 1, kButtonColumn = 2, kColumns = 3 };

QGridLayout* MakeGrid() {
  auto* grid = new QGridLayout;
  grid->setColumnStretch(kFieldColumn, 1);
  return grid;
}

}  // namespace

PageBuilder::PageBuilder(QWidget& page, Views& views)
    : page_(page), views_(views), rows_(new QVBoxLayout(&page)), grid_(MakeGrid()) {
  rows_->addLayout(grid_);
}

QWidget& PageBuilder::Parent() const { return group_ != nullptr ? *group_ : page_; }

void PageBuilder::Add(Control& control) {
  if (auto* frame = dynamic_cast<Frame*>(&control)) return AddFrame(*frame);
  if (auto* label = dynamic_cast<Label*>(&control)) return AddLabel(*label);
  if (auto* text = dynamic_cast<TextBox*>(&control)) {
    return AddBox(control, *MakeView(*text, views_, Parent()));
  }
  if (auto* combo = dynamic_cast<ComboBox*>(&control)) {
    return AddBox(control, *MakeView(*combo, views_, Parent()));
  }
  if (auto* option = dynamic_cast<OptionButton*>(&control)) return AddOption(*option);
  if (auto* button = dynamic_cast<Button*>(&control)) return AddButton(*button);
  PlaceLabel();
  if (auto* box = dynamic_cast<CheckBox*>(&control)) AddRow(*MakeView(*box, views_, Parent()));
  if (auto* list = dynamic_cast<ListBox*>(&control)) AddRow(*MakeView(*list, views_, Parent()), 1);
}

void PageBuilder::Finish() {
  EndGroup();
  if (!stretched_) rows_->addStretch(1);
  AssignMnemonics(page_);
}

// It waits for the box that it stands for.
void PageBuilder::AddLabel(Label& label) {
  PlaceLabel();
  waiting_label_ = MakeView(label, views_, Parent());
  waiting_label_control_ = &label;
  last_ = Kind::Label;
}

// A label that stands for no box is a text of its own.
void PageBuilder::PlaceLabel() {
  if (waiting_label_ == nullptr) return;
  QLabel* label = std::exchange(waiting_label_, nullptr);
  label->setWordWrap(true);
  AddRow(*label);
}

void PageBuilder::AddBox(Control& box, QWidget& view) {
  const int row = grid_->rowCount();
  if (waiting_label_ == nullptr) {
    AddRow(view);
  } else {
    QLabel* label = std::exchange(waiting_label_, nullptr);
    label->setBuddy(&view);
    views_.Keep(waiting_label_control_->Changed.Observe(
        [label, &view] { view.setAccessibleName(label->property("caption").toString()); }));
    view.setAccessibleName(label->property("caption").toString());
    grid_->addWidget(label, row, kLabelColumn);
    grid_->addWidget(&view, row, kFieldColumn, 1, kColumns - kFieldColumn);
  }
  const bool takes_button = group_ != nullptr || dynamic_cast<ComboBox*>(&box) != nullptr;
  last_ = takes_button ? Kind::Box : Kind::Other;
}

void PageBuilder::AddOption(OptionButton& option) {
  PlaceLabel();
  if (last_ != Kind::Option) {
    shared_ = new QHBoxLayout;
    shared_->addStretch(1);
    grid_->addLayout(shared_, grid_->rowCount(), 0, 1, kColumns);
  }
  shared_->insertWidget(shared_->count() - 1, MakeView(option, views_, Parent()));
  last_ = Kind::Option;
}

void PageBuilder::AddButton(Button& button) {
  PlaceLabel();
  QPushButton* view = MakeView(button, views_, Parent());
  if (last_ == Kind::Box) {
    // Beside the box above.
    const int row = grid_->rowCount() - 1;
    QLayoutItem* box = grid_->itemAtPosition(row, kFieldColumn);
    if (box != nullptr && grid_->itemAtPosition(row, kLabelColumn) != box) {
      QWidget* field = box->widget();
      grid_->removeWidget(field);
      grid_->addWidget(field, row, kFieldColumn);
      grid_->addWidget(view, row, kButtonColumn);
      last_ = Kind::Other;
      return;
    }
  }
  if (last_ != Kind::Button) {
    shared_ = new QHBoxLayout;
    shared_->addStretch(1);
    grid_->addLayout(shared_, grid_->rowCount(), 0, 1, kColumns);
  }
  shared_->addWidget(view);
  last_ = Kind::Button;
}

void PageBuilder::AddFrame(Frame& frame) {
  EndGroup();
  auto* group = new QGroupBox(&page_);
  views_.Mirror(frame, *group, [&frame, group] {
    group->setTitle(ToQt(frame.Caption()).trimmed().replace('&', "&&"));
  });
  grid_ = MakeGrid();
  group->setLayout(grid_);
  rows_->addWidget(group);
  group_ = group;
  last_ = Kind::Nothing;
}

void PageBuilder::AddRow(QWidget& view, int stretch) {
  const int row = grid_->rowCount();
  grid_->addWidget(&view, row, 0, 1, kColumns);
  last_ = Kind::Other;
  if (stretch == 0) return;
  grid_->setRowStretch(row, stretch);
  rows_->setStretch(rows_->count() - 1, stretch);
  stretched_ = true;
}

void PageBuilder::EndGroup() {
  PlaceLabel();
  group_ = nullptr;
}

}  // namespace brenwick
