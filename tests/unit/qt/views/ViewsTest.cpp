// The window's views: each shows what its control holds, and the user's hand reaches the control.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QStringList>
#include <QTest>
#include <QTreeView>
#include <string>
#include <vector>

#include "base/Failure.h"
#include "qt/views/MenuView.h"
#include "unit/qt/views/WindowFixture.h"

namespace brenwick {
namespace {

using ViewsTest = WindowFixture;

TEST_F(ViewsTest, EveryControlOfAPageHasAView) {
  for (const Control* control : form.Controls()) {
    const bool page = control->Name() == "fraPage";
    if (control->Page() == kNoPage || page) continue;
    std::string view = control->Name();
    if (control->Index() >= 0) view += std::to_string(control->Index());
    EXPECT_NE(window.findChild<QWidget*>(view.c_str()), nullptr) << view;
  }
}

TEST_F(ViewsTest, ACheckBoxFollowsAndIsClicked) {
  auto& view = Find<QCheckBox>("chkMute");
  form.chkMute.SetTicked(true);
  EXPECT_TRUE(view.isChecked());
  int clicks = 0;
  form.chkMute.Click = [&] { ++clicks; };
  view.click();
  EXPECT_FALSE(form.chkMute.Ticked());
  EXPECT_EQ(clicks, 1);
  form.chkMute.SetEnabled(false);
  EXPECT_FALSE(view.isEnabled());
}

TEST_F(ViewsTest, AnOptionTellsTheMouseFromTheKeyboard) {
  int releases = 0;
  form.optGenderSortName.MouseUp = [&] { ++releases; };
  ShowPage(kGenderPage);
  auto& view = Find<QRadioButton>("optGenderSortName");
  view.click();
  EXPECT_TRUE(form.optGenderSortName.Chosen());
  EXPECT_FALSE(Find<QRadioButton>("optGenderSortContact").isChecked());
  EXPECT_EQ(releases, 0);
  QTest::mouseClick(&view, Qt::LeftButton, {}, {8, view.height() / 2});
  EXPECT_EQ(releases, 1);
}

TEST_F(ViewsTest, ATextBoxTakesWhatIsTypedAndTellsWhenItIsLeft) {
  int left = 0;
  form.txtOnline.LostFocus = [&] { ++left; };
  ShowPage(kTextPage);
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  auto& view = Find<QLineEdit>("txtOnline");
  view.setFocus();
  view.selectAll();
  QTest::keyClicks(&view, "ist da");
  EXPECT_EQ(form.txtOnline.Text(), "ist da");
  Find<QLineEdit>("txtAway").setFocus();
  EXPECT_EQ(left, 1);
  form.txtOnline.SetText("is here");
  EXPECT_EQ(view.text(), "is here");
  form.txtOnline.SetLocked(true);
  EXPECT_TRUE(view.isReadOnly());
}

TEST_F(ViewsTest, AComboBoxIsTypedIntoKeyByKey) {
  std::string keys;
  form.cmbLanguage.AddItem("Deutsch");
  form.cmbLanguage.AddItem("English");
  form.cmbLanguage.KeyPress = [&](int character) { keys += static_cast<char>(character); };
  auto& view = Find<QComboBox>("cmbLanguage");
  EXPECT_EQ(view.count(), 2);
  view.setFocus();
  QTest::keyClicks(&view, "Eng");
  QTest::keyClick(&view, Qt::Key_Backspace);
  EXPECT_EQ(keys, "Eng\b");
  EXPECT_EQ(form.cmbLanguage.Text(), "En");
  EXPECT_EQ(view.currentText(), "En");
  form.cmbLanguage.SetListIndex(1);
  EXPECT_EQ(view.currentIndex(), 1);
  EXPECT_EQ(view.currentText(), "English");
}

TEST_F(ViewsTest, ALabelShowsItsWordsAgainAfterATextOfSeveralLines) {
  auto& label = Find<QLabel>("lblWebSite");
  form.lblWebSite.SetCaption("News");
  form.lblWebSite.SetCaption("News\r\nand help");
  EXPECT_TRUE(label.text().contains("<p")) << label.text().toStdString();
  form.lblWebSite.SetCaption("News");
  EXPECT_EQ(label.text().remove('&'), "News");
}

TEST_F(ViewsTest, AListShowsItsCellsAndFollowsTheSelection) {
  form.lstGender.AddItem("Bob\tM\t\t(bob@x)\t");
  form.lstGender.AddItem("Ann\tF\t\t(ann@x)\t");
  auto& view = Find<QTreeView>("lstGender");
  ASSERT_EQ(view.model()->rowCount(), 2);
  EXPECT_EQ(view.model()->index(0, 0).data().toString(), "Ann");
  EXPECT_EQ(view.model()->index(1, 3).data().toString(), "(bob@x)");
  form.lstGender.SetListIndex(1);
  QApplication::processEvents();
  EXPECT_EQ(view.currentIndex().row(), 1);
  form.lstGender.SetListIndex(0);
  EXPECT_EQ(view.currentIndex().row(), 0);
  view.setCurrentIndex(view.model()->index(1, 0));
  EXPECT_EQ(form.lstGender.ListIndex(), 1);
  std::string typed;
  form.lstGender.KeyPress = [&](int character) { typed += static_cast<char>(character); };
  QTest::keyClick(&view, Qt::Key_Space);
  EXPECT_EQ(typed, " ");
}

class FilledAnew : public ViewsTest {
 protected:
  FilledAnew() { Fill({"Anna\tno\t(anna@x)\t", "Ben\tno\t(ben@x)\t", "Cora\tno\t(cora@x)\t"}); }

  void Fill(const std::vector<std::string>& lines) {
    form.lstIgnore.Clear();
    for (const std::string& line : lines) form.lstIgnore.AddItem(line);
    QCoreApplication::processEvents();
  }
  QString Names() const {
    QStringList names;
    for (int row = 0; row < model.rowCount(); ++row) {
      names += model.index(row, 0).data().toString() + ' ' + model.index(row, 1).data().toString();
    }
    return names.join(", ");
  }

  QTreeView& view = Find<QTreeView>("lstIgnore");
  QAbstractItemModel& model = *view.model();
};

TEST_F(FilledAnew, AListTouchesOnlyTheLinesThatDiffer) {
  const QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
  const QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
  const QSignalSpy comings(&model, &QAbstractItemModel::rowsInserted);
  const QSignalSpy goings(&model, &QAbstractItemModel::rowsRemoved);
  const auto touched = [&] { return changes.size() + comings.size() + goings.size(); };
  Fill({"Anna\tno\t(anna@x)\t", "Ben\tno\t(ben@x)\t", "Cora\tno\t(cora@x)\t"});
  EXPECT_EQ(touched(), 0);
  Fill({"Anna\tno\t(anna@x)\t", "Ben\tyes\t(ben@x)\t", "Cora\tno\t(cora@x)\t"});
  EXPECT_EQ(Names(), "Anna no, Ben yes, Cora no");
  EXPECT_EQ(changes.size(), 1);
  EXPECT_EQ(touched(), 1);
  Fill({"Anna\tno\t(anna@x)\t", "Bea\tno\t(bea@x)\t", "Ben\tyes\t(ben@x)\t",
        "Cora\tno\t(cora@x)\t"});
  EXPECT_EQ(Names(), "Anna no, Bea no, Ben yes, Cora no");
  EXPECT_EQ(comings.size(), 1);
  EXPECT_EQ(touched(), 2);
  Fill({"Anna\tno\t(anna@x)\t", "Cora\tno\t(cora@x)\t"});
  EXPECT_EQ(Names(), "Anna no, Cora no");
  EXPECT_EQ(goings.size(), 1);
  EXPECT_EQ(touched(), 3);
  EXPECT_EQ(resets.size(), 0);
}

TEST_F(FilledAnew, AListTakesManyNewLinesAtOnce) {
  std::vector<std::string> lines;
  for (int i = 100; i < 500; ++i) lines.push_back("Contact " + std::to_string(i) + "\tno\tx\t");
  const QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
  Fill(lines);
  EXPECT_EQ(model.rowCount(), 400);
  EXPECT_EQ(resets.size(), 1);
  Fill({});
  EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(FilledAnew, AKeyMovesAmongTheLinesThatAreThereNow) {
  form.lstIgnore.SetListIndex(1);
  form.lstIgnore.Clear();
  form.lstIgnore.AddItem("Dora\tno\t(dora@x)\t");
  QTest::keyClick(&view, Qt::Key_End);
  EXPECT_EQ(Names(), "Dora no");
  EXPECT_EQ(form.lstIgnore.ListIndex(), 0);
}

TEST_F(FilledAnew, AClickChoosesTheLineThatIsThereNow) {
  ShowPage(form.lstIgnore.Page());
  form.lstIgnore.SetListIndex(0);
  QCoreApplication::processEvents();
  const QPoint first = view.visualRect(model.index(0, 0)).center();
  form.lstIgnore.RemoveItem(0);
  ASSERT_EQ(form.lstIgnore.ListIndex(), -1);
  QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, first);
  EXPECT_EQ(Names(), "Ben no, Cora no");
  EXPECT_EQ(form.lstIgnore.ListIndex(), 0);
}

TEST_F(FilledAnew, AListShowsTheSelectionThatItGetsMeanwhile) {
  form.lstIgnore.Clear();
  for (const char* line : {"A\tx\ty\t", "B\tx\ty\t", "C\tx\ty\t", "D\tx\ty\t", "E\tx\ty\t"}) {
    form.lstIgnore.AddItem(line);
  }
  form.lstIgnore.SetListIndex(4);
  QCoreApplication::processEvents();
  EXPECT_EQ(view.currentIndex().row(), 4);
  Fill({"A\tx\ty\t"});
  EXPECT_EQ(view.currentIndex().row(), -1);
  EXPECT_EQ(form.lstIgnore.ListIndex(), -1);
}

TEST_F(ViewsTest, NoNeighbourIsChosenForALineThatGoes) {
  form.lstGender.AddItem("Ann");
  form.lstGender.AddItem("Bob");
  form.lstGender.SetListIndex(0);
  QApplication::processEvents();
  form.lstGender.RemoveItem(0);
  QApplication::processEvents();
  EXPECT_EQ(form.lstGender.ListIndex(), -1);
  EXPECT_FALSE(Find<QTreeView>("lstGender").currentIndex().isValid());
}

TEST_F(ViewsTest, ALineThatComesBackInItsPlaceStaysTheSame) {
  form.lstGender.AddItem("Ann\tF\t");
  form.lstGender.AddItem("Bob\tM\t");
  form.lstGender.SetListIndex(0);
  QApplication::processEvents();
  auto& view = Find<QTreeView>("lstGender");
  const QPersistentModelIndex ann = view.model()->index(0, 0);
  const QPersistentModelIndex bob = view.model()->index(1, 0);
  form.lstGender.RemoveItem(0);
  form.lstGender.AddItem("Ann\tM\t");
  form.lstGender.SetListIndex(form.lstGender.NewIndex());
  QApplication::processEvents();
  ASSERT_TRUE(ann.isValid());
  EXPECT_EQ(ann.sibling(0, 1).data().toString(), "M");
  EXPECT_EQ(view.currentIndex(), QModelIndex(ann));
  EXPECT_EQ(bob.row(), 1);
}

TEST_F(ViewsTest, TheChoiceStaysWhereALineInFrontOfItGoes) {
  for (const char* line : {"Ann", "Bob", "Cy"}) form.lstGender.AddItem(line);
  form.lstGender.SetListIndex(2);
  QApplication::processEvents();
  form.lstGender.RemoveItem(0);
  QApplication::processEvents();
  EXPECT_EQ(form.lstGender.ListIndex(), 1);
  EXPECT_EQ(Find<QTreeView>("lstGender").currentIndex().row(), 1);
}

TEST_F(ViewsTest, ALineThatGoesTakesNoOtherWithIt) {
  for (const char* line : {"Ann", "Bob", "Cy"}) form.lstGender.AddItem(line);
  form.lstGender.SetListIndex(2);
  QApplication::processEvents();
  auto& view = Find<QTreeView>("lstGender");
  const QPersistentModelIndex cy = view.model()->index(2, 0);
  form.lstGender.RemoveItem(1);
  form.lstGender.AddItem("Zed");
  form.lstGender.RemoveItem(0);
  QApplication::processEvents();
  ASSERT_EQ(view.model()->rowCount(), 2);
  EXPECT_EQ(cy.row(), 0);
  EXPECT_EQ(view.currentIndex(), QModelIndex(cy));
  EXPECT_EQ(view.model()->index(1, 0).data().toString(), "Zed");
}

TEST_F(ViewsTest, ThePageListHasAnIconForEachPageAndSelects) {
  for (std::size_t i = 0; i < kPageTitles.size(); ++i) form.lstMenu.AddItem("page");
  int selected = -1;
  form.lstMenu.Click = [&] { selected = form.lstMenu.ListIndex(); };
  auto& view = Find<QListWidget>("lstMenu");
  ASSERT_EQ(view.count(), static_cast<int>(kPageTitles.size()));
  for (int i = 0; i < view.count(); ++i) EXPECT_FALSE(view.item(i)->icon().pixmap(22).isNull());
  view.setCurrentRow(3);
  EXPECT_EQ(selected, 3);
  form.lstMenu.SetListIndex(5);
  EXPECT_EQ(view.currentRow(), 5);
}

TEST_F(ViewsTest, ALabelNamesItsBoxForThoseWhoCannotSeeIt) {
  form.lblOnline.SetCaption("Da :");
  EXPECT_EQ(Find<QLineEdit>("txtOnline").accessibleName(), "Da :");
  EXPECT_EQ(Find<QLabel>("lblOnline").buddy(), &Find<QLineEdit>("txtOnline"));
}

TEST_F(ViewsTest, EveryCaptionOfAPageHasALetterOfItsOwn) {
  QSet<QChar> letters;
  for (const QCheckBox* box : Find<QWidget>("page1").findChildren<QCheckBox*>()) {
    const qsizetype mark = box->text().indexOf('&');
    ASSERT_GE(mark, 0) << box->text().toStdString();
    const QChar letter = box->text().at(mark + 1).toLower();
    EXPECT_FALSE(letters.contains(letter)) << box->text().toStdString();
    letters.insert(letter);
  }
  EXPECT_EQ(letters.size(), 9);
}

TEST_F(ViewsTest, TheTrayMenuFollowsItsItemsAndKeepsItsActions) {
  QMenu menu;
  const auto buddies = [&] { return menu.findChild<QMenu*>("mnuBuddies")->actions(); };
  form.mnuBuddiesOnLine[0].SetCaption("Anna & Ben");
  FillMenu(menu, form, views);
  const QList<QAction*> before = menu.actions();
  ASSERT_EQ(buddies().size(), 1);
  QAction* const anna = buddies()[0];
  EXPECT_EQ(anna->text(), "Anna && Ben");

  form.mnuBuddiesOnLine[0].SetChecked(true);
  form.mnuBuddiesOnLine.Load(1).SetCaption("Carl");
  form.mnuBuddiesOnLine[1].SetEnabled(false);
  FillMenu(menu, form, views);
  EXPECT_EQ(menu.actions(), before);
  ASSERT_EQ(buddies().size(), 2);
  EXPECT_EQ(buddies()[0], anna);
  EXPECT_TRUE(anna->isChecked());
  EXPECT_EQ(buddies()[1]->text(), "Carl");
  EXPECT_FALSE(buddies()[1]->isEnabled());

  form.mnuBuddiesOnLine[0].SetVisible(false);
  FillMenu(menu, form, views);
  ASSERT_EQ(buddies().size(), 1);
  EXPECT_EQ(buddies()[0]->text(), "Carl");
}

TEST_F(ViewsTest, AnItemOfTheTrayMenuIsClickedOnce) {
  QMenu menu;
  FillMenu(menu, form, views);
  FillMenu(menu, form, views);
  int clicks = 0;
  form.mnuMute.Click = [&] { ++clicks; };
  menu.findChild<QAction*>("mnuMute")->trigger();
  EXPECT_EQ(clicks, 1);
}

TEST_F(ViewsTest, ClosingAsksTheProgram) {
  int asked = 0;
  form.CloseWanted = [&] { ++asked; };
  window.close();
  EXPECT_EQ(asked, 1);
  EXPECT_TRUE(window.isVisible());
}

TEST_F(ViewsTest, AMinimizedWindowHidesWhereThereIsATray) {
  form.SetState(WindowState::Minimized);
  form.Hide();
  EXPECT_FALSE(window.isVisible());
  form.SetState(WindowState::Normal);
  form.Show();
  EXPECT_TRUE(window.isVisible());
}

TEST_F(ViewsTest, AMinimizedWindowStaysInTheTaskBarWhereThereIsNone) {
  window.HasTray = [] { return false; };
  form.SetState(WindowState::Minimized);
  form.Hide();
  EXPECT_TRUE(window.isVisible());
  EXPECT_TRUE(window.isMinimized());
  window.HasTray = [] { return true; };
  window.TrayChanged();
  EXPECT_FALSE(window.isVisible());
}

TEST_F(ViewsTest, NothingReachesAProgramThatHasEnded) {
  int clicks = 0;
  form.cmdOK.Click = [&] {
    ++clicks;
    throw ProgramEnd{};
  };
  auto& view = Find<QPushButton>("cmdOK");
  view.click();
  view.click();
  EXPECT_EQ(clicks, 1);
  EXPECT_THROW(end.GoOn(), ProgramEnd);
}

}  // namespace
}  // namespace brenwick
