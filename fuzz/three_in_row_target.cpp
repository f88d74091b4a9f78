#include "fuzz/targets.h"
#include "fuzz/three_in_row.h"

namespace brontavia::fuzz {

void FuzzThreeInRow(std::string_view script) { FuzzWindow<ThreeInRow>(script); }

}  // namespace brontavia::fuzz
