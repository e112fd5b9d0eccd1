#pragma once

#include <QString>
#include <QStringView>

#include <array>
#include <optional>

// The four endpoints of the data service. An endpoint's name is also its envelope key.
enum class FeedEndpoint { Games, Teams, Stadiums, Groups };

inline constexpr std::array allFeedEndpoints{FeedEndpoint::Games, FeedEndpoint::Teams, FeedEndpoint::Stadiums,
                                             FeedEndpoint::Groups};

QString endpointName(FeedEndpoint endpoint); // "games"
QString endpointPath(FeedEndpoint endpoint); // "/get/games"
std::optional<FeedEndpoint> endpointFromName(QStringView name);
