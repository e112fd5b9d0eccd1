#include "DebugHooks.h"

namespace DebugHooks {

std::optional<PanelRoute> routeFromText(const QString &text)
{
    const QStringList pieces = text.split(u':', Qt::SkipEmptyParts);
    if (pieces.isEmpty())
        return std::nullopt;
    const QString &kind = pieces.constFirst();
    if (kind == QLatin1StringView("settings"))
        return PanelRoute::settings();
    if (pieces.size() != 2)
        return std::nullopt;
    if (kind == QLatin1StringView("match"))
        return PanelRoute::match(pieces.at(1));
    if (kind == QLatin1StringView("team"))
        return PanelRoute::team(pieces.at(1));
    if (kind == QLatin1StringView("stadium"))
        return PanelRoute::stadium(pieces.at(1));
    return std::nullopt;
}

bool isPresentationRequested(const QProcessEnvironment &environment)
{
    for (const char *name : {"TIDEWELL_AUTOSHOW", "TIDEWELL_SNAPSHOT", "TIDEWELL_SECTION", "TIDEWELL_DETAIL",
                             "TIDEWELL_BANNER"}) {
        if (environment.contains(QLatin1StringView(name)))
            return true;
    }
    return false;
}

} // namespace DebugHooks
