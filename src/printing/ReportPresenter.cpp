#include "printing/ReportPresenter.h"

namespace report {

namespace {
Presenter* installed = nullptr;
}

Presenter* presenter() {
    return installed;
}

void installPresenter(Presenter* presenter) {
    installed = presenter;
}

}  // namespace report
