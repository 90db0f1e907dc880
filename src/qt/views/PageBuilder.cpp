#include "qt/views/PageBuilder.h"

#include <QGroupBox>

#include "qt/Strings.h"
#include "qt/views/ButtonViews.h"
#include "qt/views/ComboView.h"
#include "qt/views/ListView.h"
#include "qt/views/Mnemonics.h"
#include "qt/views/PageHeading.h"
#include "qt/views/TextView.h"

namespace brenwick {
namespace {

constexpr int kBelowHeading = 4;  // pixels

enum Column { kLabelColumn = 0, kFieldColumn = 1, kButtonColumn = 2, kColumns = 3 };

QGridLayout* MakeGrid() {
  auto* grid = new QGridLayout;
  grid->setColumnStretch(kFieldColumn, 1);
  return grid;
}

bool IsArrayElement(const Control& control) { return control.Index() >= 0; }

// True for a button that shares a row with other buttons.
bool IsOrdinaryButton(const Control* control) {
  return dynamic_cast<const Button*>(control) != nullptr && !IsArrayElement(*control);
}

// Calls `bear` with the caption of a control, now and at each change.
template <typename Captioned, typename Bear>
void Follow(Captioned& control, Views& views, Bear bear) {
  const auto follow = [&control, bear] { bear(ToQt(control.Caption()).trimmed()); };
  follow();
  views.Own(control.Changed.Observe(follow));
}

}  // namespace

PageBuilder::PageBuilder(QWidget& page, Frame& frame, Views& views)
    : page_(page), frame_(frame), views_(views), rows_(new QVBoxLayout(&page)), grid_(MakeGrid()) {
  rows_->setContentsMargins(rows_->contentsMargins().left(), 0, 0, 0);
  rows_->addWidget(MakePageHeading(frame_, views_, page_));
  rows_->addSpacing(kBelowHeading);
  rows_->addLayout(grid_);
}

QWidget& PageBuilder::Parent() const { return group_ != nullptr ? *group_ : page_; }

void PageBuilder::Build(const std::vector<Control*>& controls) {
  for (std::size_t i = 0; i < controls.size(); ++i) {
    Add(*controls[i], i + 1 < controls.size() ? controls[i + 1] : nullptr);
  }
  Finish();
}

void PageBuilder::Add(Control& control, const Control* next) {
  if (auto* frame = dynamic_cast<Frame*>(&control)) return AddFrame(*frame);
  if (auto* label = dynamic_cast<Label*>(&control)) return AddLabel(*label);
  if (auto* text = dynamic_cast<TextBox*>(&control)) {
    return AddBox(*MakeView(*text, views_, Parent()), text->Columns() == 0);
  }
  if (auto* combo = dynamic_cast<ComboBox*>(&control)) {
    return AddBox(*MakeView(*combo, views_, Parent()), true);
  }
  if (auto* option = dynamic_cast<OptionButton*>(&control)) return AddOption(*option);
  if (auto* button = dynamic_cast<Button*>(&control)) {
    return AddButton(*button, !IsOrdinaryButton(next));
  }
  if (auto* list = dynamic_cast<ListBox*>(&control)) return AddList(*list);
  PlaceLabels();
  if (auto* box = dynamic_cast<CheckBox*>(&control)) AddRow(*MakeView(*box, views_, Parent()));
}

void PageBuilder::Finish() {
  PlaceLabels();
  if (!stretched_) rows_->addStretch(1);
  if (foot_ != nullptr) {
    foot_->addStretch(1);
    rows_->addLayout(foot_);
  }
  AssignMnemonics(page_);
  KeepTabForChosen();
}

// Tab reaches one option of a group, and the arrow keys reach the others; Qt arranges this only
// from the first change on.
void PageBuilder::KeepTabForChosen() {
  for (const auto& [_, group] : options_) {
    if (group->checkedButton() == nullptr) continue;
    for (QAbstractButton* button : group->buttons()) {
      button->setFocusPolicy(button->isChecked() ? Qt::StrongFocus : Qt::ClickFocus);
    }
  }
}

// A label waits for the control that it belongs to; the labels of an array wait together.
void PageBuilder::AddLabel(Label& label) {
  const bool together =
      !waiting_.empty() && IsArrayElement(label) && waiting_.back().control.Name() == label.Name();
  if (!together) PlaceLabels();
  waiting_.push_back({label, *MakeView(label, views_, Parent())});
}

void PageBuilder::PlaceLabels() {
  for (const WaitingLabel& label : std::exchange(waiting_, {})) {
    label.view.setWordWrap(true);
    AddRow(label.view);
  }
}

void PageBuilder::AddBox(QWidget& view, bool wide) {
  const int row = grid_->rowCount();
  int column = kLabelColumn;
  if (!waiting_.empty()) {
    const WaitingLabel label = waiting_.front();
    waiting_.pop_front();
    label.view.setBuddy(&view);
    Follow(label.control, views_, [&view](const QString& name) { view.setAccessibleName(name); });
    last_label_ = &label.control;
    grid_->addWidget(&label.view, row, kLabelColumn);
    column = kFieldColumn;
  }
  const Qt::Alignment side = wide ? Qt::Alignment() : Qt::AlignLeft | Qt::AlignVCenter;
  grid_->addWidget(&view, row, column, 1, kColumns - column, side);
  last_ = Kind::Box;
  last_box_ = &view;
}

void PageBuilder::AddList(ListBox& list) {
  QTreeView* view = MakeView(list, views_, Parent());
  Follow(frame_, views_, [view](const QString& name) { view->setAccessibleName(name); });
  if (!waiting_.empty()) {
    Follow(waiting_.front().control, views_,
           [view](const QString& hint) { view->setAccessibleDescription(hint); });
  }
  PlaceLabels();
  grid_->setRowStretch(AddRow(*view), 1);
  rows_->setStretch(rows_->count() - 1, 1);
  stretched_ = true;
}

void PageBuilder::AddOption(OptionButton& option) {
  QRadioButton* view = MakeView(option, views_, Parent());
  if (last_ != Kind::Option || !waiting_.empty()) {
    const bool labelled = !waiting_.empty();
    AddSharedRow(labelled ? kFieldColumn : kLabelColumn);
    if (labelled) grid_->addWidget(&waiting_.front().view, grid_->rowCount() - 1, kLabelColumn);
    waiting_.clear();
    shared_->addStretch(1);
  }
  shared_->insertWidget(shared_->count() - 1, view);
  // The group lets the arrow keys move from one option to the other.
  QButtonGroup*& group = options_[&option.Group()];
  if (group == nullptr) group = new QButtonGroup(&page_);
  group->addButton(view);
  last_ = Kind::Option;
}

void PageBuilder::AddButton(Button& button, bool alone) {
  QPushButton* view = MakeView(button, views_, Parent());
  if (IsArrayElement(button) && last_ != Kind::Box) return AddToFoot(*view);
  if (!waiting_.empty()) {
    QLabel& text = waiting_.front().view;
    text.setWordWrap(true);
    const int row = grid_->rowCount();
    grid_->addWidget(&text, row, kLabelColumn, 1, kButtonColumn);
    grid_->addWidget(view, row, kButtonColumn);
    waiting_.clear();
    last_ = Kind::Other;
    return;
  }
  if (last_ == Kind::Box && alone) {
    const int row = grid_->rowCount() - 1;
    const bool labelled = grid_->itemAtPosition(row, kLabelColumn)->widget() != last_box_;
    const int column = labelled ? kFieldColumn : kLabelColumn;
    grid_->removeWidget(last_box_);
    grid_->addWidget(last_box_, row, column, 1, kButtonColumn - column);
    grid_->addWidget(view, row, kButtonColumn);
    if (!labelled) {
      Follow(button, views_,
             [box = last_box_](const QString& name) { box->setAccessibleName(name); });
    } else {
      Follow(*last_label_, views_,
             [view](const QString& what) { view->setAccessibleDescription(what); });
    }
    last_ = Kind::Other;
    return;
  }
  if (last_ != Kind::Button) {
    AddSharedRow(kLabelColumn);
    shared_->addStretch(1);
  }
  shared_->addWidget(view);
  last_ = Kind::Button;
}

void PageBuilder::AddToFoot(QWidget& view) {
  if (foot_ == nullptr) foot_ = new QHBoxLayout;
  foot_->addWidget(&view);
}

void PageBuilder::AddFrame(Frame& frame) {
  PlaceLabels();
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

// The row's number.
int PageBuilder::AddRow(QWidget& view) {
  const int row = grid_->rowCount();
  grid_->addWidget(&view, row, kLabelColumn, 1, kColumns);
  last_ = Kind::Other;
  return row;
}

void PageBuilder::AddSharedRow(int column) {
  shared_ = new QHBoxLayout;
  grid_->addLayout(shared_, grid_->rowCount(), column, 1, kColumns - column);
}

}  // namespace brenwick
