// The main window over a form without a program, where no screen is needed.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <stdexcept>
#include <string>

#include "forms/frmMain.h"
#include "qt/views/MainWindowView.h"
#include "support/TestApplication.h"

namespace brenwick {

class WindowFixture : public testing::Test {
 protected:
  WindowFixture() {
    window.HasTray = [] { return true; };
    form.Show();
  }

  template <typename Widget>
  Widget& Find(const std::string& name) {
    auto* widget = window.findChild<Widget*>(QString::fromStdString(name));
    if (widget == nullptr) throw std::runtime_error("there is no " + name);
    return *widget;
  }

  void ShowPage(int shown) {
    for (Frame& page : form.fraPage) page.SetVisible(page.Index() == shown);
  }

  TestApplication<QApplication> application;

  frmMain form;
  EndOfProgram end;
  Views views{end};
  MainWindowView window{form, views};
};

}  // namespace brenwick
