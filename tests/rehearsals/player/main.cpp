// Plays all rehearsals, without a window.
#include "rehearsals/player/PlayAll.h"

int main(int count, char** values) {
  return brenwick::PlayAll({values + 1, values + count}, nullptr);
}
