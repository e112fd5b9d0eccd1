#include "FeedEndpoint.h"

QString endpointName(FeedEndpoint endpoint)
{
    switch (endpoint) {
    case FeedEndpoint::Games:
        return QStringLiteral("games");
    case FeedEndpoint::Teams:
        return QStringLiteral("teams");
    case FeedEndpoint::Stadiums:
        return QStringLiteral("stadiums");
    case FeedEndpoint::Groups:
        return QStringLiteral("groups");
    }
    return {};
}

QString endpointPath(FeedEndpoint endpoint)
{
    return QStringLiteral("/get/") + endpointName(endpoint);
}

std::optional<FeedEndpoint> endpointFromName(QStringView name)
{
    for (const FeedEndpoint endpoint : allFeedEndpoints) {
        if (name == endpointName(endpoint))
            return endpoint;
    }
    return std::nullopt;
}
