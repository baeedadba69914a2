#include "controllers/Trapped.h"

#include "base/Error.h"
#include "base/UiService.h"
#include "store/clsFoutCodeVertaler.h"

bool trapped(const QString& caption, const std::function<void()>& op) {
    try {
        op();
        return true;
    } catch (const Error& error) {
        ui::message(clsFoutCodeVertaler().GebruikerMelding(error), caption, ui::Icon::Exclamation);
        return false;
    }
}

bool trapped(const std::function<void()>& op) {
    return trapped(ui::kProgramCaption, op);
}
