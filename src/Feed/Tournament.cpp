#include "Tournament.h"

#include "FeedLogging.h"

#include <QFile>
#include <QJsonDocument>

namespace {

const QStringList fixedGameKeys = {QStringLiteral("_id"),        QStringLiteral("id"),
                                   QStringLiteral("type"),       QStringLiteral("group"),
                                   QStringLiteral("matchday"),   QStringLiteral("stadium_id"),
                                   QStringLiteral("local_date"), QStringLiteral("persian_date")};

// Collects the first problem found while reading, so that one message says what is wrong.
class Reader {
public:
    bool failed() const { return !m_error.isEmpty(); }
    const QString &error() const { return m_error; }

    void fail(const QString &message)
    {
        if (m_error.isEmpty())
            m_error = message;
    }

    QString string(const QJsonObject &object, const QString &key)
    {
        const QJsonValue value = object.value(key);
        if (!value.isString())
            fail(QStringLiteral("\"%1\" is not text").arg(key));
        return value.toString();
    }

    int integer(const QJsonValue &value, const QString &what)
    {
        if (!value.isDouble() || value.toDouble() != double(value.toInt()))
            fail(QStringLiteral("%1 is not an integer").arg(what));
        return value.toInt();
    }

    std::optional<Score> score(const QJsonObject &scores, const QString &period)
    {
        const QJsonValue value = scores.value(period);
        if (value.isUndefined())
            return std::nullopt;
        const QJsonArray pair = value.toArray();
        if (pair.size() != 2) {
            fail(QStringLiteral("score \"%1\" is not a pair").arg(period));
            return std::nullopt;
        }
        return Score{integer(pair[0], period), integer(pair[1], period)};
    }

    QStringList teamIDs(const QJsonValue &value, const QString &what)
    {
        QStringList ids;
        for (const QJsonValue &id : value.toArray())
            ids.append(id.toString());
        if (ids.size() != 4)
            fail(QStringLiteral("%1 does not list four teams").arg(what));
        return ids;
    }

    Feeder feeder(const QString &text)
    {
        if (text == u"group stage")
            return {Feeder::Kind::GroupStage, {}};
        if (text.startsWith(u"group "))
            return {Feeder::Kind::Group, text.sliced(6)};
        if (text.startsWith(u"match "))
            return {Feeder::Kind::Match, text.sliced(6)};
        fail(QStringLiteral("unknown feeder \"%1\"").arg(text));
        return {};
    }

    SideFact side(const QJsonObject &object)
    {
        SideFact side{string(object, QStringLiteral("team_id")), std::nullopt, {}};
        if (object.contains(u"label")) {
            side.label = string(object, QStringLiteral("label"));
            side.knownAfter = feeder(string(object, QStringLiteral("known_after")));
        }
        return side;
    }

    GoalFact goal(const QJsonObject &object)
    {
        GoalFact goal;
        goal.side = string(object, QStringLiteral("side")) == u"home" ? Side::Home : Side::Away;
        goal.minute = integer(object.value(u"minute"), QStringLiteral("goal minute"));
        goal.added = integer(object.value(u"added"), QStringLiteral("added minute"));
        goal.scorer = string(object, QStringLiteral("scorer"));
        goal.penalty = object.value(u"penalty").toBool();
        goal.ownGoal = object.value(u"own_goal").toBool();
        if (goal.minute < 1 || goal.minute > 120 || goal.added < 0)
            fail(QStringLiteral("goal minute %1+%2 is out of range").arg(goal.minute).arg(goal.added));
        return goal;
    }

    GameFact game(const QJsonObject &object)
    {
        GameFact game;
        for (const QString &key : fixedGameKeys)
            game.fixed.insert(key, string(object, key));
        game.id = game.fixed.value(u"id").toString();
        game.group = game.fixed.value(u"group").toString();
        game.isGroupGame = game.fixed.value(u"type").toString() == u"group";
        const QDateTime kickoff =
            QDateTime::fromString(string(object, QStringLiteral("kickoff")), Qt::ISODate);
        if (!kickoff.isValid())
            fail(QStringLiteral("game %1 has no readable kick-off").arg(game.id));
        game.kickoff = instantFromDateTime(kickoff);
        game.home = side(object.value(u"home").toObject());
        game.away = side(object.value(u"away").toObject());
        const QJsonObject scores = object.value(u"score").toObject();
        game.fullTime = score(scores, QStringLiteral("ft")).value_or(Score{});
        game.extraTime = score(scores, QStringLiteral("et"));
        game.penalties = score(scores, QStringLiteral("penalties"));
        for (const QJsonValue &goal : object.value(u"goals").toArray())
            game.goals.append(this->goal(goal.toObject()));
        if (!scores.contains(u"ft"))
            fail(QStringLiteral("game %1 has no full-time score").arg(game.id));
        return game;
    }

    GroupFact group(const QJsonObject &object)
    {
        GroupFact group;
        group.recordID = string(object, QStringLiteral("_id"));
        group.name = string(object, QStringLiteral("name"));
        group.drawOrder = teamIDs(object.value(u"draw_order"), QStringLiteral("group ") + group.name);
        group.finalOrder = teamIDs(object.value(u"final_order"), QStringLiteral("group ") + group.name);
        return group;
    }

private:
    QString m_error;
};

} // namespace

std::optional<Tournament> Tournament::fromJson(const QByteArray &json, QString *error)
{
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(json, &parseError);
    Reader reader;
    if (!document.isObject())
        reader.fail(QStringLiteral("not a JSON object: ") + parseError.errorString());
    const QJsonObject root = document.object();

    Tournament tournament;
    tournament.teams = root.value(u"teams").toArray();
    tournament.stadiums = root.value(u"stadiums").toArray();
    for (const QJsonValue &team : std::as_const(tournament.teams)) {
        const QJsonObject object = team.toObject();
        tournament.teamNames.insert(object.value(u"id").toString(), {object.value(u"name_en").toString(),
                                                                     object.value(u"name_fa").toString()});
    }
    for (const QJsonValue &group : root.value(u"groups").toArray())
        tournament.groups.append(reader.group(group.toObject()));
    for (const QJsonValue &game : root.value(u"games").toArray())
        tournament.games.append(reader.game(game.toObject()));

    if (tournament.games.isEmpty() || tournament.groups.isEmpty() || tournament.teams.isEmpty())
        reader.fail(QStringLiteral("the dataset lacks games, groups or teams"));
    for (const GameFact &game : std::as_const(tournament.games)) {
        for (const SideFact *side : {&game.home, &game.away}) {
            if (!tournament.teamNames.contains(side->teamID))
                reader.fail(QStringLiteral("game %1 names unknown team %2").arg(game.id, side->teamID));
        }
    }
    if (reader.failed()) {
        if (error)
            *error = reader.error();
        return std::nullopt;
    }
    return tournament;
}

const Tournament &Tournament::bundled()
{
    static const Tournament tournament = [] {
        QFile file(QStringLiteral(":/pitchlark/feed/tournament.json"));
        QString error = QStringLiteral("cannot open the bundled dataset");
        std::optional<Tournament> loaded;
        if (file.open(QIODevice::ReadOnly))
            loaded = fromJson(file.readAll(), &error);
        // The dataset is compiled in; not reading it is a broken build, not a runtime condition.
        if (!loaded)
            qFatal("pitchlark-feed: the bundled tournament is unreadable: %s", qPrintable(error));
        return *std::move(loaded);
    }();
    return tournament;
}
