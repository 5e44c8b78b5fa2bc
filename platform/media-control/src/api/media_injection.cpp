// The function of media_injection.h.
#include "media_injection.h"

#include "MediaControlExport.h"
#include "player/PlayerRegistry.h"

using media::PlayerRegistry;

MEDIA_EXPORT int mediaInjectReport(int player, eMEDIA_CALLBACK_EVENT event, int code) {
    const auto all = PlayerRegistry::instance().all();
    const auto found = player >= 0 ? PlayerRegistry::instance().find(player) : all.empty() ? nullptr : all.back();
    if (!found || event < eMEDIA_CALLBACK_STOPPED || event >= eMEDIA_CALLBACK_MAX) {
        return 0;
    }
    found->inject(event, code);
    return 1;
}
