#include "remote/DeskKeys.h"

#include <algorithm>

namespace tv {

const DeskKey* deskKeyNamed(const QString& shortcut) {
    const auto* const found = std::find_if(deskKeys.begin(), deskKeys.end(), [&shortcut](const DeskKey& key) {
        return shortcut.compare(QLatin1String(key.shortcut), Qt::CaseInsensitive) == 0;
    });
    return found == deskKeys.end() ? nullptr : found;
}

} // namespace tv
