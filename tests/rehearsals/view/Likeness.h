// Whether the windows show what the forms hold.
#pragma once

#include <QString>
#include <vector>

#include "forms/frmMain.h"
#include "forms/frmStatus.h"
#include "qt/views/MainWindowView.h"
#include "qt/views/StatusView.h"

namespace brenwick {

class Likeness {
 public:
  Likeness(const frmMain& form, const MainWindowView& view, const frmStatus& status,
           const StatusView& statusView);

  // What is shown otherwise than it is held, in words; empty while all is alike.
  QString Difference() const;

 private:
  struct Pair {
    const Control* control;
    const QWidget* widget;
  };

  QString WindowDifference() const;

  const frmMain& form_;
  const MainWindowView& view_;
  const frmStatus& status_;
  const StatusView& status_view_;
  std::vector<Pair> pairs_;
};

}  // namespace brenwick
