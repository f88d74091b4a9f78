// The program's version, as the build names it.
#pragma once

#include <QString>

namespace brontavia {

QString Version();

}  // namespace brontavia
