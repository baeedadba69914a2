#include "base/Paths.h"

namespace paths {

QString withSeparator(const QString& folder) {
    return folder.endsWith(u'/') ? folder : folder + u'/';
}

}  // namespace paths
