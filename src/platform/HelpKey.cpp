#include "platform/HelpKey.h"

#include <Qt>

#include "platform/clsHelp.h"

namespace HelpKey {

bool isHelpKey(int key) {
    return key == Qt::Key_F1 || key == ClassicF1;
}

bool showPageOnHelpKey(int key, const QString& page) {
    if (!isHelpKey(key)) {
        return false;
    }
    clsHelp().ToonHelpPagina(page);
    return true;
}

}  // namespace HelpKey
