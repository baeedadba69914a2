#pragma once

#include <QString>

namespace paths {

// The folder followed by the platform's separator, unless it already ends in one.
QString withSeparator(const QString& folder);

}  // namespace paths
