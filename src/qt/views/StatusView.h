// The small window that shows what a long operation is doing.
#pragma once

#include <QLabel>
#include <QWidget>

#include "forms/frmStatus.h"
#include "qt/views/Views.h"

namespace brenwick {

class StatusView : public QWidget {
 public:
  StatusView(frmStatus& form, Views& views);

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void ShowOrHide();

  frmStatus& form_;
};

}  // namespace brenwick
