#include "fuzz/strategy.h"
#include "fuzz/targets.h"

namespace brontavia::fuzz {

void FuzzMiniStrategy(std::string_view script) { FuzzWindow<Strategy<kGameMES>>(script); }

void FuzzStrategy(std::string_view script) { FuzzWindow<Strategy<kGameEST>>(script); }

}  // namespace brontavia::fuzz
