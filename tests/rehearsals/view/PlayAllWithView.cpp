// Plays all rehearsals with the windows of the desktop attached.
#include "rehearsals/player/PlayAll.h"
#include "rehearsals/view/Audience.h"

namespace {

int Play(const std::vector<std::string>& arguments, brenwick::Audience& audience) {
  return brenwick::PlayAll(arguments, &audience);
}

}  // namespace

int main(int count, char** values) { return brenwick::WithWindows(count, values, Play); }
