#include "fuzz/naval.h"
#include "fuzz/targets.h"

namespace brontavia::fuzz {

void FuzzNaval(std::string_view script) { FuzzWindow<Naval>(script); }

}  // namespace brontavia::fuzz
