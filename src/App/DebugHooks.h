#pragma once

#include "Navigation/PanelRoute.h"

#include <QProcessEnvironment>
#include <QString>

#include <optional>

// Launch-time hooks for screenshots and demos, driven by environment variables: open a section or a
// detail, switch the glass style, hide the scores, show a banner, write a snapshot of the panel and quit.
namespace DebugHooks {

// "match:ID", "team:ID", "stadium:ID" or "settings..."; nothing for anything else.
std::optional<PanelRoute> routeFromText(const QString &text);

// Whether any of the hooks that present the panel is set, whatever its value.
bool isPresentationRequested(const QProcessEnvironment &environment);

// TIDEWELL_FLOATING and TIDEWELL_FLOATING_AFTER: only "1" means on.
inline bool floatingFromText(const QString &value)
{
    return value == QLatin1StringView("1");
}

} // namespace DebugHooks
