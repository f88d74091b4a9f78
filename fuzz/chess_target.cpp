#include "fuzz/chess.h"
#include "fuzz/targets.h"

namespace brontavia::fuzz {

void FuzzChess(std::string_view script) { FuzzWindow<Chess>(script); }

}  // namespace brontavia::fuzz
