#include "views/QtLabelViews.h"

#include "views/frmEtiketten.h"
#include "views/frmFactuur.h"

std::unique_ptr<IEtikettenView> QtLabelViews::createEtiketten() {
    return std::make_unique<frmEtiketten>(frmFactuur::frame());
}
