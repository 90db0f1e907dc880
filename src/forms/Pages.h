// The option pages, by the number of their frame. Frame 13 is free.
#pragma once

#include <array>
#include <cstdint>

namespace brenwick {

enum Page : int {
  kGeneralPage = 0,
  kSpokenPage = 1,
  kTextPage = 2,
  kVoicesPage = 3,
  kBuddyNamesPage = 4,
  kIgnorePage = 5,
  kGenderPage = 6,
  kConnectionsPage = 7,
  kSpokenWordsPage = 8,
  kSaveSettingsPage = 9,
  kWebsitePage = 10,
  kLogOptionsPage = 11,
  kRepeatPage = 12,
  kAboutPage = 14,
  kContactInfoPage = 15,
};

inline constexpr int kPageCount = 16;

// The place of all pages in the window, in twips.
inline constexpr int kPageLeft = 1800;
inline constexpr int kPageTop = 120;

// The entries of the page list, with the numbers of the texts that title them. Contact info has
// none: it opens from the contact list.
struct PageTitle {
  Page page;
  std::int16_t text;
  const char* english = "";  // of a title that not every language has
};

inline constexpr std::array<PageTitle, 14> kPageTitles{{
    {kGeneralPage, 3},
    {kSpokenPage, 4},
    {kTextPage, 5},
    {kVoicesPage, 115},
    {kBuddyNamesPage, 154},
    {kIgnorePage, 42},
    {kGenderPage, 120},
    {kSpokenWordsPage, 7},
    {kSaveSettingsPage, 153},
    {kWebsitePage, 142},
    {kLogOptionsPage, 146},
    {kRepeatPage, 151},
    {kAboutPage, 6},
    {kConnectionsPage, 186, "Connections"},
}};

}  // namespace brenwick
