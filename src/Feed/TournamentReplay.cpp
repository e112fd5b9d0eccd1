#include "TournamentReplay.h"

#include "GroupTable.h"
#include "ScorerText.h"

#include <algorithm>

namespace {

QString sideKey(bool isHome, QLatin1StringView field)
{
    return (isHome ? QStringLiteral("home") : QStringLiteral("away")) + field;
}

QString elapsedText(const MatchMoment &moment, ElapsedStyle style)
{
    switch (moment.phase) {
    case MatchMoment::Phase::NotStarted:
        return QStringLiteral("notstarted");
    case MatchMoment::Phase::Finished:
        return QStringLiteral("finished");
    case MatchMoment::Phase::InPlay:
        break;
    }
    return style == ElapsedStyle::Live ? QStringLiteral("live") : moment.clock;
}

} // namespace

TournamentReplay::TournamentReplay(const Tournament &tournament)
    : m_tournament(tournament), m_firstKickoff(Instant::max()), m_end(Instant::min())
{
    m_timelines.reserve(tournament.games.size());
    for (const GameFact &game : tournament.games) {
        m_timelines.append(MatchTimeline(game));
        m_firstKickoff = std::min(m_firstKickoff, game.kickoff);
        m_end = std::max(m_end, m_timelines.last().end());
    }
    m_sidesKnownAt.reserve(tournament.games.size());
    for (const GameFact &game : tournament.games)
        m_sidesKnownAt.append({settledAt(game.home.knownAfter), settledAt(game.away.knownAfter)});
}

Instant TournamentReplay::settledAt(const Feeder &feeder) const
{
    Instant settled = Instant::min();
    for (qsizetype index = 0; index < m_tournament.games.size(); ++index) {
        const GameFact &game = m_tournament.games[index];
        const bool feeds =
            (feeder.kind == Feeder::Kind::Match && game.id == feeder.key) ||
            (feeder.kind == Feeder::Kind::Group && game.isGroupGame && game.group == feeder.key) ||
            (feeder.kind == Feeder::Kind::GroupStage && game.isGroupGame);
        if (feeds)
            settled = std::max(settled, m_timelines[index].end());
    }
    return settled;
}

void TournamentReplay::addSide(QJsonObject &record, const SideFact &side, Instant revealedAt, Instant instant,
                               bool isHome) const
{
    const bool known = instant >= revealedAt;
    record.insert(sideKey(isHome, QLatin1StringView("_team_id")), known ? side.teamID : QStringLiteral("0"));
    if (side.label)
        record.insert(sideKey(isHome, QLatin1StringView("_team_label")), *side.label);
    if (known) {
        const TeamNames names = m_tournament.teamNames.value(side.teamID);
        record.insert(sideKey(isHome, QLatin1StringView("_team_name_en")), names.english);
        record.insert(sideKey(isHome, QLatin1StringView("_team_name_fa")), names.persian);
    }
}

QJsonObject TournamentReplay::game(qsizetype index, Instant instant, ElapsedStyle style) const
{
    const GameFact &fact = m_tournament.games[index];
    const MatchTimeline &timeline = m_timelines[index];
    const MatchMoment moment = timeline.at(instant);

    QJsonObject record = fact.fixed;
    addSide(record, fact.home, m_sidesKnownAt[index].home, instant, true);
    addSide(record, fact.away, m_sidesKnownAt[index].away, instant, false);

    QList<const GoalFact *> homeGoals;
    QList<const GoalFact *> awayGoals;
    for (qsizetype goal = 0; goal < fact.goals.size(); ++goal) {
        if (timeline.goalInstant(goal) <= instant)
            (fact.goals[goal].side == Side::Home ? homeGoals : awayGoals).append(&fact.goals[goal]);
    }
    record.insert(QStringLiteral("home_score"), QString::number(homeGoals.size()));
    record.insert(QStringLiteral("away_score"), QString::number(awayGoals.size()));
    record.insert(QStringLiteral("home_scorers"), ScorerText::list(homeGoals));
    record.insert(QStringLiteral("away_scorers"), ScorerText::list(awayGoals));
    record.insert(QStringLiteral("finished"), moment.phase == MatchMoment::Phase::Finished
                                                  ? QStringLiteral("TRUE")
                                                  : QStringLiteral("FALSE"));
    record.insert(QStringLiteral("time_elapsed"), elapsedText(moment, style));
    return record;
}

QJsonArray TournamentReplay::games(Instant instant, ElapsedStyle style) const
{
    QJsonArray games;
    for (qsizetype index = 0; index < m_tournament.games.size(); ++index)
        games.append(game(index, instant, style));
    return games;
}

QJsonArray TournamentReplay::groups(Instant instant) const
{
    QJsonArray groups;
    for (const GroupFact &group : m_tournament.groups) {
        QList<GroupResult> results;
        qsizetype games = 0;
        for (qsizetype index = 0; index < m_tournament.games.size(); ++index) {
            const GameFact &game = m_tournament.games[index];
            if (!game.isGroupGame || game.group != group.name)
                continue;
            ++games;
            if (m_timelines[index].end() <= instant)
                results.append({game.home.teamID, game.away.teamID, game.fullTime});
        }
        QJsonArray rows;
        for (const GroupRow &row : GroupTable::ranked(group, results, results.size() == games)) {
            rows.append(QJsonObject{{QStringLiteral("team_id"), row.teamID},
                                    {QStringLiteral("mp"), QString::number(row.played)},
                                    {QStringLiteral("w"), QString::number(row.won)},
                                    {QStringLiteral("l"), QString::number(row.lost)},
                                    {QStringLiteral("d"), QString::number(row.drawn)},
                                    {QStringLiteral("pts"), QString::number(row.points())},
                                    {QStringLiteral("gf"), QString::number(row.goalsFor)},
                                    {QStringLiteral("ga"), QString::number(row.goalsAgainst)},
                                    {QStringLiteral("gd"), QString::number(row.goalDifference())}});
        }
        groups.append(QJsonObject{{QStringLiteral("_id"), group.recordID},
                                  {QStringLiteral("name"), group.name},
                                  {QStringLiteral("teams"), rows}});
    }
    return groups;
}
