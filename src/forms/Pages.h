// The option pages, by the number of their frame. Frames 7 and 13 are free.
#pragma once

namespace brenwick {

enum Page : int {
  kGeneralPage = 0,
  kSpokenPage = 1,
  kTextPage = 2,
  kVoicesPage = 3,
  kBuddyNamesPage = 4,
  kIgnorePage = 5,
  kGenderPage = 6,
  kSpokenWordsPage = 8,
  kSaveSettingsPage = 9,
  kWebsitePage = 10,
  kLogOptionsPage = 11,
  kRepeatPage = 12,
  kAboutPage = 14,
  kContactInfoPage = 15,
};

inline constexpr int kPageCount = 16;

}  // namespace brenwick
