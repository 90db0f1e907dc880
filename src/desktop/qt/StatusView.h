// The small window that tells what a long operation is doing.
#pragma once

#include <QLabel>
#include <QWidget>

#include "desktop/qt/Views.h"
#include "forms/frmStatus.h"

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
