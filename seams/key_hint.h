// What a key does in the phase that a game is in.
#pragma once

#include <QList>
#include <QString>

namespace brontavia {

struct KeyHint {
  QString Key;  // as it is printed on the key: "Intro", "F3"
  QString Use;  // "coloca al azar"
  friend bool operator==(const KeyHint&, const KeyHint&) = default;
};

// In the order of their use; what does not fit on screen is left out from the end.
using KeyHints = QList<KeyHint>;

}  // namespace brontavia
