#pragma once

#include <QByteArray>
#include <QJsonArray>

// Games bodies shaped as the live data service sends them, grown from the seed export's fixtures so that
// no network is needed.
namespace LiveGamesBody {

// The seed games as the live service shows them during matchday 2: the earlier games played, with scores
// and scorers, three games under way and the rest not started. Every scalar is a string, "_id" included.
QJsonArray duringMatchdayTwo(const QJsonArray &seedGames);

// The games one copy after another, each game of each copy under a fresh id.
QJsonArray repeated(const QJsonArray &games, int copies);

// The games under their envelope key, written compactly as the service does.
QByteArray envelope(const QJsonArray &games);

} // namespace LiveGamesBody
