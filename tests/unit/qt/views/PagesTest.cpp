// How the pages look, for the eye, the keyboard and a screen reader, in every language.
#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QTreeView>
#include <fstream>

#include "base/Lines.h"
#include "base/Text.h"
#include "pages/FormTextTable.h"
#include "qt/Strings.h"
#include "qt/views/LabelText.h"
#include "qt/views/PageIcons.h"
#include "unit/qt/views/WindowFixture.h"

namespace brenwick {
namespace {

const QString kLanguages = BRENWICK_SOURCE_DIR "/languages";

QStringList LanguageFiles() {
  QStringList files = QDir(kLanguages).entryList({"*.txt"}, QDir::Files | QDir::CaseSensitive);
  files.removeOne("CMakeLists.txt");
  return files;
}

std::vector<std::string> TextsOf(const QString& file) {
  std::ifstream stream((kLanguages + "/" + file).toStdString());
  const std::string content{std::istreambuf_iterator<char>(stream), {}};
  std::vector<std::string> texts = {""};
  for (const std::string_view line : Lines(content)) {
    if (!IsBlank(line)) texts.emplace_back(line);
  }
  return texts;
}

// The words of a widget, as a test names it.
std::string NameOf(const QWidget& widget) { return widget.objectName().toStdString(); }

class PagesTest : public WindowFixture {
 protected:
  void Speak(const QString& file) {
    const std::vector<std::string> texts = TextsOf(file);
    form.lstMenu.Clear();
    for (const PageTitle& page : kPageTitles) {
      form.lstMenu.AddItem(texts.at(static_cast<std::size_t>(page.text)));
    }
    for (const FormText& row : FormTextTable()) {
      row.set(form, texts.at(static_cast<std::size_t>(row.id)));
    }
    std::string about;
    for (std::size_t id = 125; id <= 138; ++id) about += texts.at(id) + "\r\n";
    form.lblAbout.SetCaption(about);
    for (Label* note : {&form.lblHotKeyActivateBW, &form.lblHotKeySilent, &form.lblHotKeyRepeat}) {
      note->SetCaption(texts.at(176));
      note->SetVisible(true);
    }
    for (ConnectionControls& row : form.Sources) row.lblName.SetCaption("Pidgin or Finch");
    for (ConnectionControls& row : form.Engines) row.lblName.SetCaption("Speech Dispatcher");
    form.lblAbbreviationsFile.SetCaption("/home/somebody/Documents/Brenwick/Abbreviations.Txt");
  }

  QWidget& Page(int page) { return Find<QWidget>("page" + std::to_string(page)); }

  // What the user can do something with on a page.
  QList<QWidget*> Usable(int page) {
    QList<QWidget*> usable;
    for (QWidget* widget : Page(page).findChildren<QWidget*>()) {
      const bool part = qobject_cast<QComboBox*>(widget->parentWidget()) != nullptr;
      const bool named = widget->objectName().size() > 3 && !widget->objectName().startsWith("qt_");
      if (named && !part && widget->isVisible() && widget->focusPolicy() & Qt::TabFocus) {
        usable.append(widget);
      }
    }
    return usable;
  }
};

TEST_F(PagesTest, NoTextIsCutInAnyLanguage) {
  ASSERT_EQ(LanguageFiles().size(), 7);
  for (const QString& language : LanguageFiles()) {
    Speak(language);
    for (const Frame& page : form.fraPage) {
      ShowPage(page.Index());
      QApplication::processEvents();
      for (QWidget* widget : Page(page.Index()).findChildren<QWidget*>()) {
        const auto* label = qobject_cast<QLabel*>(widget);
        const bool words = label != nullptr || qobject_cast<QAbstractButton*>(widget) != nullptr;
        if (!words || !widget->isVisible()) continue;
        const std::string where = language.toStdString() + ": " + NameOf(*widget);
        if (label != nullptr && label->wordWrap()) {
          EXPECT_GE(widget->height(), widget->heightForWidth(widget->width())) << where;
        } else {
          EXPECT_GE(widget->width(), widget->sizeHint().width()) << where;
          EXPECT_GE(widget->height(), widget->sizeHint().height()) << where;
        }
      }
    }
  }
}

TEST_F(PagesTest, EveryPageFitsIntoTheWindowInEveryLanguage) {
  for (const QString& language : LanguageFiles()) {
    Speak(language);
    for (const Frame& page : form.fraPage) {
      ShowPage(page.Index());
      QApplication::processEvents();
      auto* scroller =
          qobject_cast<QScrollArea*>(Page(page.Index()).parentWidget()->parentWidget());
      ASSERT_NE(scroller, nullptr);
      const std::string where = language.toStdString() + ": " + page.Caption();
      EXPECT_EQ(scroller->horizontalScrollBar()->maximum(), 0) << where;
      EXPECT_EQ(scroller->verticalScrollBar()->maximum(), 0) << where;
    }
  }
}

TEST_F(PagesTest, EveryPageBearsItsTitle) {
  for (Frame& page : form.fraPage) {
    const auto& heading = Find<QLabel>("heading" + std::to_string(page.Index()));
    EXPECT_EQ(heading.text(), ToQt(page.Caption()).trimmed());
    page.SetCaption(" Titel ");
    EXPECT_EQ(heading.text(), "Titel");
  }
}

TEST_F(PagesTest, NoTwoLettersOfAPageAreTheSameInAnyLanguage) {
  for (const QString& language : LanguageFiles()) {
    Speak(language);
    for (const Frame& page : form.fraPage) {
      QSet<QString> letters;
      for (QWidget* widget : Page(page.Index()).findChildren<QWidget*>()) {
        QKeySequence letter;
        if (auto* button = qobject_cast<QAbstractButton*>(widget)) letter = button->shortcut();
        if (auto* label = qobject_cast<QLabel*>(widget); label != nullptr && label->buddy()) {
          letter = QKeySequence::mnemonic(label->text());
        }
        if (letter.isEmpty()) continue;
        EXPECT_FALSE(letters.contains(letter.toString()))
            << language.toStdString() << ": " << NameOf(*widget);
        letters.insert(letter.toString());
      }
    }
  }
}

TEST_F(PagesTest, TabGoesThroughAPageInTheOrderOfTheForm) {
  form.optBuddyNamesMale.Choose();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  for (const Frame& page : form.fraPage) {
    ShowPage(page.Index());
    const QList<QWidget*> usable = Usable(page.Index());
    if (usable.isEmpty()) continue;
    std::vector<std::string> wanted;
    for (const Control* control : form.Controls()) {
      const auto* option = dynamic_cast<const OptionButton*>(control);
      // One of a group is reached by Tab, the others by the arrow keys.
      if (option != nullptr && !option->Chosen()) continue;
      std::string name = control->Name();
      if (control->Index() >= 0) name += std::to_string(control->Index());
      const auto* view = Page(page.Index()).findChild<QWidget*>(ToQt(name));
      if (view != nullptr && usable.contains(view) && view->isEnabled()) wanted.push_back(name);
    }
    std::vector<std::string> reached;
    Find<QListWidget>("lstMenu").setFocus();
    for (std::size_t i = 0; i < wanted.size(); ++i) {
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
      reached.push_back(NameOf(*QApplication::focusWidget()));
    }
    EXPECT_EQ(reached, wanted) << page.Caption();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "cmdOK") << page.Caption();
  }
}

TEST_F(PagesTest, AScreenReaderTellsWhatAButtonBesideABoxBelongsTo) {
  form.Sources[1].lblName.SetCaption("Notifications");
  EXPECT_EQ(Find<QPushButton>("cmdTestSource1").accessibleDescription(), "Notifications");
  form.Sources[1].lblName.SetCaption("D-Bus");
  EXPECT_EQ(Find<QPushButton>("cmdTestSource1").accessibleDescription(), "D-Bus");
}

TEST_F(PagesTest, AScreenReaderHasANameForEverything) {
  Speak("English.txt");
  for (const Frame& page : form.fraPage) {
    ShowPage(page.Index());
    for (QWidget* widget : Usable(page.Index())) {
      QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(widget);
      ASSERT_NE(interface, nullptr);
      // A combo box tells what is chosen where others tell their name.
      const QString name = qobject_cast<QComboBox*>(widget) != nullptr
                               ? widget->accessibleName()
                               : interface->text(QAccessible::Name);
      EXPECT_FALSE(name.isEmpty()) << NameOf(*widget);
    }
  }
  EXPECT_EQ(Find<QListWidget>("lstMenu").accessibleName(), "Options");
  EXPECT_EQ(Find<QTreeView>("lstGender").accessibleName(), "Gender");
  EXPECT_EQ(Find<QTreeView>("lstGender").accessibleDescription(),
            ToQt(form.lblGenderHint.Caption()));
}

TEST_F(PagesTest, AScreenReaderReadsAListCellByCell) {
  form.lstGender.AddItem("Ann\tF\t\t(ann@x)\t");
  ShowPage(kGenderPage);
  QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&Find<QTreeView>("lstGender"));
  ASSERT_NE(list->tableInterface(), nullptr);
  QStringList cells;
  for (int column = 0; column < list->tableInterface()->columnCount(); ++column) {
    cells.append(list->tableInterface()->cellAt(0, column)->text(QAccessible::Name));
  }
  EXPECT_EQ(cells, (QStringList{"Ann", "F", "", "(ann@x)"}));
}

TEST_F(PagesTest, TheLastColumnReachesToTheEndAndNoCellIsCut) {
  form.lstGender.AddItem("Ann\tF\t\t(ann@x)\t");
  ShowPage(kGenderPage);
  QApplication::processEvents();
  auto& view = Find<QTreeView>("lstGender");
  EXPECT_EQ(view.columnViewportPosition(3) + view.columnWidth(3), view.viewport()->width());
  form.lstGender.AddItem("Bob\tM\t\t(" + std::string(300, 'b') + "@x)\t");
  QApplication::processEvents();
  const QString cell = view.model()->index(1, 3).data().toString();
  EXPECT_GT(view.columnWidth(3), view.fontMetrics().horizontalAdvance(cell));
  EXPECT_TRUE(QTest::qWaitFor([&] { return view.horizontalScrollBar()->maximum() > 0; }));
}

TEST_F(PagesTest, CtrlPageUpAndDownGoFromPageToPage) {
  for (int i = 0; i < 3; ++i) form.lstMenu.AddItem("page");
  form.lstMenu.SetListIndex(0);
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  const auto press = [&](Qt::Key key) { QTest::keyClick(&window, key, Qt::ControlModifier); };
  press(Qt::Key_PageDown);
  EXPECT_EQ(form.lstMenu.ListIndex(), 1);
  press(Qt::Key_PageUp);
  press(Qt::Key_PageUp);
  EXPECT_EQ(form.lstMenu.ListIndex(), 0);
  form.lstMenu.SetEnabled(false);
  press(Qt::Key_PageDown);
  EXPECT_EQ(form.lstMenu.ListIndex(), 0);
}

TEST_F(PagesTest, EnterAndEscapePressTheButtonsOfContactInfoAlone) {
  std::string pressed;
  form.cmdBuddyNamesOK.Click = [&] { pressed += "OK "; };
  form.cmdBuddyNamesCancel.Click = [&] { pressed += "Cancel "; };
  form.CloseWanted = [&] { pressed += "close "; };
  QTest::keyClick(&window, Qt::Key_Return);
  QTest::keyClick(&window, Qt::Key_Escape);
  EXPECT_EQ(pressed, "");
  ShowPage(kContactInfoPage);
  QTest::keyClick(&Find<QLineEdit>("txtBuddyNamesFriendlyName"), Qt::Key_Return);
  QTest::keyClick(&Find<QCheckBox>("chkBuddyNamesIgnore"), Qt::Key_Escape);
  EXPECT_EQ(pressed, "OK Cancel ");
  QTest::keyClick(&Find<QPushButton>("cmdBuddyNamesCancel"), Qt::Key_Enter);
  EXPECT_EQ(pressed, "OK Cancel Cancel ");
}

TEST_F(PagesTest, TheArrowKeysGoFromOptionToOption) {
  ShowPage(kGenderPage);
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  auto& first = Find<QRadioButton>("optGenderSortContact");
  first.setFocus();
  QTest::keyClick(&first, Qt::Key_Right);
  EXPECT_TRUE(form.optGenderSortName.Chosen());
  EXPECT_TRUE(Find<QRadioButton>("optGenderSortName").hasFocus());
  EXPECT_FALSE(first.isChecked());
  form.optGenderSortEmail.Choose();
  EXPECT_TRUE(Find<QRadioButton>("optGenderSortEmail").isChecked());
  EXPECT_FALSE(Find<QRadioButton>("optGenderSortName").isChecked());
}

TEST_F(PagesTest, RightToLeftTheWindowIsItsOwnMirrorImage) {
  Speak("English.txt");
  ShowPage(kVoicesPage);
  const auto left = [&](const char* name) {
    const QWidget& widget = Find<QWidget>(name);
    return widget.mapTo(&window, QPoint()).x();
  };
  EXPECT_LT(left("lstMenu"), left("page3"));
  EXPECT_LT(left("lblTalkSpeedMale"), left("txtTalkSpeedMale"));
  EXPECT_LT(left("cmbVoiceMale"), left("cmdSpeedTestMale"));
  window.setLayoutDirection(Qt::RightToLeft);
  QApplication::processEvents();
  EXPECT_GT(left("lstMenu"), left("page3"));
  EXPECT_GT(left("lblTalkSpeedMale"), left("txtTalkSpeedMale"));
  EXPECT_GT(left("cmbVoiceMale"), left("cmdSpeedTestMale"));
  const QMargins margins = Find<QLabel>("heading3").contentsMargins();
  EXPECT_EQ(margins.left(), 0);
  EXPECT_GT(margins.right(), 0);
}

TEST_F(PagesTest, ANumberHasAShortBox) {
  ShowPage(kVoicesPage);
  QApplication::processEvents();
  EXPECT_LT(Find<QLineEdit>("txtTalkSpeedMale").width(),
            Find<QComboBox>("cmbVoiceMale").width() / 2);
}

TEST_F(PagesTest, WhatCannotBeWrittenIntoLooksLikeThePage) {
  const auto base = [&] { return Find<QLineEdit>("txtOnline").palette().color(QPalette::Base); };
  const QColor writable = base();
  form.txtOnline.SetLocked(true);
  EXPECT_EQ(base(), QApplication::palette().color(QPalette::Window));
  EXPECT_NE(base(), writable);
  form.txtOnline.SetLocked(false);
  EXPECT_EQ(base(), writable);
}

TEST_F(PagesTest, APictureKeepsItsShapeOnASelectedLine) {
  const QIcon icon = PageIcon(kGeneralPage);
  const QImage plain = icon.pixmap(32).toImage();
  const QImage selected = icon.pixmap(32, QIcon::Selected).toImage();
  ASSERT_EQ(plain.size(), selected.size());
  int drawn = 0;
  for (int y = 0; y < plain.height(); ++y) {
    for (int x = 0; x < plain.width(); ++x) {
      EXPECT_EQ(plain.pixelColor(x, y).alpha(), selected.pixelColor(x, y).alpha());
      if (plain.pixelColor(x, y).alpha() < 255) continue;
      ++drawn;
      EXPECT_EQ(selected.pixelColor(x, y),
                QApplication::palette().color(QPalette::HighlightedText));
    }
  }
  EXPECT_GT(drawn, 20);
  EXPECT_TRUE(PageIcon(kContactInfoPage).isNull());
}

TEST_F(PagesTest, AnAddressInALabelIsALinkThatTheKeyboardReaches) {
  form.lblAbout.SetCaption("Words & more.\r\nOn the web:\r\n\thttp://brenwick.example/\r\n");
  ShowPage(kAboutPage);
  auto& label = Find<QLabel>("lblAbout");
  EXPECT_TRUE(label.text().contains("<a href=\"http://brenwick.example/\">"))
      << label.text().toStdString();
  EXPECT_TRUE(label.text().contains("Words &amp; more."));
  EXPECT_TRUE(label.textInteractionFlags() & Qt::LinksAccessibleByKeyboard);
  EXPECT_TRUE(label.openExternalLinks());
  EXPECT_TRUE(Usable(kAboutPage).contains(&label));
}

const std::string kLine = "<p style=\"margin: 0px 0px 4px\">";

std::string Html(const char* caption) { return ToHtml(caption).toStdString(); }

TEST(LabelText, LeavesTheEndOfTheSentenceOutOfAnAddress) {
  EXPECT_EQ(Html("See https://x.example/a?b=1&c (or http://y.example)."),
            kLine +
                "See <a href=\"https://x.example/a?b=1&amp;c\">https://x.example/a?b=1&amp;c</a> "
                "(or <a href=\"http://y.example\">http://y.example</a>).</p>");
}

TEST(LabelText, ShowsMarkupAsItStands) {
  EXPECT_EQ(Html("<b>\n<i>"), kLine + "&lt;b&gt;</p>" + kLine + "&lt;i&gt;</p>");
  EXPECT_FALSE(IsRich("<b>plain</b>"));
  EXPECT_TRUE(IsRich("two\nlines"));
}

}  // namespace
}  // namespace brenwick
