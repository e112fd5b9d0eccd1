#include "LiveGamesBody.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

#include <array>

namespace LiveGamesBody {

namespace {

constexpr int lastPlayedGame = 36;
// One game under way at each kind of clock the live feed reports.
constexpr std::array liveClocks = {"67", "45+2", "HT"};

constexpr std::array scorerNames = {"R. Jiménez", "F. Balogun", "J. Quiñones", "D. Bobadilla", "C. Pulisic"};
constexpr std::array scorerSuffixes = {"", "", "(p)", "", "(OG)"};

// Up to three goals a side, spread so that wins, draws and goalless sides all occur.
int goals(int gameNumber, bool home)
{
    return home ? (gameNumber * 3) % 4 : (gameNumber * 5 + 1) % 3;
}

// The service's scorer text: "null", or a brace-wrapped list of quoted entries with minutes.
QString scorers(int gameNumber, bool home)
{
    const int count = goals(gameNumber, home);
    if (count == 0)
        return QStringLiteral("null");
    QStringList entries;
    for (int goal = 0; goal < count; ++goal) {
        const int pick = gameNumber + goal + (home ? 0 : 2);
        const int minute = (gameNumber * 17 + goal * 29 + (home ? 0 : 11)) % 90 + 1;
        entries.append(QStringLiteral("\"%1 %2'%3\"")
                           .arg(QString::fromUtf8(scorerNames[pick % scorerNames.size()]))
                           .arg(minute)
                           .arg(QLatin1StringView(scorerSuffixes[pick % scorerSuffixes.size()])));
    }
    return u'{' + entries.join(u',') + u'}';
}

void setScores(QJsonObject &game, int gameNumber)
{
    game.insert(QLatin1StringView("home_score"), QString::number(goals(gameNumber, true)));
    game.insert(QLatin1StringView("away_score"), QString::number(goals(gameNumber, false)));
    game.insert(QLatin1StringView("home_scorers"), scorers(gameNumber, true));
    game.insert(QLatin1StringView("away_scorers"), scorers(gameNumber, false));
}

} // namespace

QJsonArray duringMatchdayTwo(const QJsonArray &seedGames)
{
    QJsonArray games;
    for (const QJsonValue &seedGame : seedGames) {
        QJsonObject game = seedGame.toObject();
        // The export wraps "_id" as {"$oid": …}; the live service sends the bare string.
        game.insert(QLatin1StringView("_id"),
                    game.value(QLatin1StringView("_id"))[QLatin1StringView("$oid")]);
        game.insert(QLatin1StringView("createdAt"), QStringLiteral("2025-01-31T09:45:14.417Z"));
        game.insert(QLatin1StringView("updatedAt"), QStringLiteral("2026-06-21T19:52:03.108Z"));
        game.insert(QLatin1StringView("__v"), QStringLiteral("0"));

        const int number = game.value(QLatin1StringView("id")).toString().toInt();
        const int liveIndex = number - lastPlayedGame - 1;
        if (number <= lastPlayedGame) {
            setScores(game, number);
            game.insert(QLatin1StringView("finished"), QStringLiteral("TRUE"));
            game.insert(QLatin1StringView("time_elapsed"), QStringLiteral("finished"));
        } else if (liveIndex < int(liveClocks.size())) {
            setScores(game, number);
            game.insert(QLatin1StringView("time_elapsed"), QLatin1StringView(liveClocks[liveIndex]));
        }
        games.append(game);
    }
    return games;
}

QJsonArray repeated(const QJsonArray &games, int copies)
{
    QJsonArray copied;
    for (int copy = 0; copy < copies; ++copy) {
        for (qsizetype index = 0; index < games.size(); ++index) {
            QJsonObject game = games[index].toObject();
            game.insert(QLatin1StringView("id"), QString::number(copy * games.size() + index + 1));
            copied.append(game);
        }
    }
    return copied;
}

QByteArray envelope(const QJsonArray &games)
{
    return QJsonDocument(QJsonObject{{QLatin1StringView("games"), games}}).toJson(QJsonDocument::Compact);
}

} // namespace LiveGamesBody
