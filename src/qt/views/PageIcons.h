// The pictures of the pages.
#pragma once

#include <QIcon>

namespace brenwick {

// The picture of the page with that number, in the colour of the text where it is selected; none
// for a page without an entry in the page list.
QIcon PageIcon(int page);

}  // namespace brenwick
