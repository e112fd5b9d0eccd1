#include "KnockoutOutcomes.h"

#include "Models/BracketSlot.h"

#include <QHash>
#include <QRegularExpression>

#include <algorithm>

namespace KnockoutOutcomes {

bool scoredInExtraTime(const QString &scorerEntry)
{
    // The first number followed by a minute mark or a plus is the period minute; added time after 90
    // ("90'+4'") is still normal time, any minute past 90 ("106'", "120'+2'") is extra time.
    static const QRegularExpression minute(QStringLiteral(R"((\d+)\s*['’+])"));
    const QRegularExpressionMatch found = minute.match(scorerEntry);
    return found.hasMatch() && found.captured(1).toInt() > 90;
}

namespace {

using BracketSlot::isDecidedSide;
using BracketSlot::Link;
using BracketSlot::linkedMatchNumber;

// The decided sides that later games name as the winner or the loser of each match number.
struct SlotFillings {
    QHash<int, QString> winners;
    QHash<int, QString> losers;

    explicit SlotFillings(const QList<Match> &matches)
    {
        for (const Match &match : matches) {
            add(match.homeSlotLabel, match.homeTeamID);
            add(match.awaySlotLabel, match.awayTeamID);
        }
    }

    void add(const QString &slotLabel, const QString &teamID)
    {
        if (!isDecidedSide(teamID))
            return;
        if (const auto number = linkedMatchNumber(slotLabel, Link::winner))
            winners.insert(*number, teamID);
        else if (const auto number = linkedMatchNumber(slotLabel, Link::loser))
            losers.insert(*number, teamID);
    }
};

std::optional<QString> shootOutWinner(const Match &match, const SlotFillings &fillings)
{
    if (match.matchNumber == 0)
        return std::nullopt;
    const QString winner = fillings.winners.value(match.matchNumber);
    if (winner == match.homeTeamID || winner == match.awayTeamID)
        return winner;
    const QString loser = fillings.losers.value(match.matchNumber);
    if (loser == match.homeTeamID)
        return match.awayTeamID;
    if (loser == match.awayTeamID)
        return match.homeTeamID;
    return std::nullopt;
}

} // namespace

void derive(QList<Match> &matches)
{
    const SlotFillings fillings(matches);
    for (Match &match : matches) {
        match.wentToExtraTime = false;
        match.decidedOnPenalties = false;
        match.winnerTeamID.reset();
        if (!match.isKnockout() || match.status != MatchStatus::finished || !match.homeScore ||
            !match.awayScore)
            continue;
        // Level after play means a shoot-out, and a shoot-out only ever follows extra time.
        match.decidedOnPenalties = *match.homeScore == *match.awayScore;
        const auto extraTimeGoal = [](const QStringList &scorers) {
            return std::any_of(scorers.cbegin(), scorers.cend(), scoredInExtraTime);
        };
        match.wentToExtraTime =
            match.decidedOnPenalties || extraTimeGoal(match.homeScorers) || extraTimeGoal(match.awayScorers);
        if (match.decidedOnPenalties)
            match.winnerTeamID = shootOutWinner(match, fillings);
        else
            match.winnerTeamID = *match.homeScore > *match.awayScore ? match.homeTeamID : match.awayTeamID;
        if (match.winnerTeamID && !isDecidedSide(*match.winnerTeamID))
            match.winnerTeamID.reset();
    }
}

} // namespace KnockoutOutcomes
