// What is photographed: each function opens windows, plays in them as users would and closes them again.
#pragma once

#include "tests/gallery/album.h"

namespace brontavia::test {

void TakeWindowsBeforeTheGame(Album& album);  // start, selection, and the guides of server and client
void TakeThreeInRow(Album& album);
void TakeNavalBattle(Album& album);
void TakeStrategy(Album& album);
void TakeMiniStrategy(Album& album);
void TakeChess(Album& album);

}  // namespace brontavia::test
