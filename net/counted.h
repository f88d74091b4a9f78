// Counts what is under way, however it ends.
#pragma once

#include <QtGlobal>

namespace brontavia {

// One more in `count` for as long as this lives. The count outlives it.
class Counted {
 public:
  explicit Counted(int& count) : count_(count) { ++count_; }
  Q_DISABLE_COPY_MOVE(Counted)
  ~Counted() { --count_; }

 private:
  int& count_;
};

}  // namespace brontavia
