#include "APIGame.h"

#include "FeedDecoding.h"

using FeedDecoding::lossyString;
using FeedDecoding::text;

APIGame APIGame::fromJson(const QJsonObject &object)
{
    APIGame game;
    game.id = FeedDecoding::identity(object);
    game.homeTeamID = text(object, QLatin1StringView("home_team_id"), game.homeTeamID);
    game.awayTeamID = text(object, QLatin1StringView("away_team_id"), game.awayTeamID);
    game.homeScore = text(object, QLatin1StringView("home_score"), game.homeScore);
    game.awayScore = text(object, QLatin1StringView("away_score"), game.awayScore);
    game.homeScorers = text(object, QLatin1StringView("home_scorers"), game.homeScorers);
    game.awayScorers = text(object, QLatin1StringView("away_scorers"), game.awayScorers);
    game.group = text(object, QLatin1StringView("group"), game.group);
    game.matchday = text(object, QLatin1StringView("matchday"), game.matchday);
    game.localDate = text(object, QLatin1StringView("local_date"), game.localDate);
    game.stadiumID = text(object, QLatin1StringView("stadium_id"), game.stadiumID);
    game.finished = text(object, QLatin1StringView("finished"), game.finished);
    game.timeElapsed = text(object, QLatin1StringView("time_elapsed"), game.timeElapsed);
    game.type = text(object, QLatin1StringView("type"), game.type);
    game.homeTeamNameEn = lossyString(object, QLatin1StringView("home_team_name_en"));
    game.awayTeamNameEn = lossyString(object, QLatin1StringView("away_team_name_en"));
    game.homeTeamLabel = lossyString(object, QLatin1StringView("home_team_label"));
    game.awayTeamLabel = lossyString(object, QLatin1StringView("away_team_label"));
    return game;
}
