#include "qt/QtScreen.h"
#include "support/TestApplication.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFontMetricsF>

namespace brenwick {
namespace {

class QtScreenTest : public testing::Test {
 protected:
  float Width(const std::string& text) { return screen.TextWidth(text, {}); }

  TestApplication<QApplication> application;
  EndOfProgram end;
  QtScreen screen{end};
};

TEST_F(QtScreenTest, MeasuresTextsInTheFontOfTheDesktopInTwips) {
  const QFontMetricsF metrics{QApplication::font()};
  for (const char* text : {"", "i", "WWW", "Zoë Ångström"}) {
    EXPECT_FLOAT_EQ(Width(text), 15 * static_cast<float>(metrics.horizontalAdvance(text))) << text;
    EXPECT_EQ(Width(text), Width(text)) << text;
  }
  EXPECT_LT(Width("i"), Width("WWW"));
}

TEST_F(QtScreenTest, MeasuresMoreTextsThanItKeeps) {
  const float first = Width("text 0");
  for (int i = 1; i <= 30'000; ++i) Width("text " + std::to_string(i));
  EXPECT_EQ(Width("text 0"), first);
}

}  // namespace
}  // namespace brenwick
