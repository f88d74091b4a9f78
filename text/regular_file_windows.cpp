#include <QFileInfo>

#include "text/regular_file.h"

namespace brontavia {

// Pipes and devices have names of their own here, outside every folder; none of them is a file to the toolkit.
bool OpenRegular(QFile& file) { return QFileInfo(file).isFile() && file.open(QIODevice::ReadOnly); }

}  // namespace brontavia
