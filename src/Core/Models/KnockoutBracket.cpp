#include "KnockoutBracket.h"

#include "BracketSlot.h"

#include <QHash>
#include <QSet>

#include <algorithm>

namespace {

QString roundTitle(const QString &round)
{
    static const QHash<QString, QString> titles{
        {QStringLiteral("R32"), QStringLiteral("Round of 32")},
        {QStringLiteral("R16"), QStringLiteral("Round of 16")},
        {QStringLiteral("QF"), QStringLiteral("Quarter-finals")},
        {QStringLiteral("SF"), QStringLiteral("Semi-finals")},
        {QStringLiteral("FINAL"), QStringLiteral("Final")},
    };
    return titles.value(round, round);
}

using BracketSlot::Link;
using BracketSlot::linkedMatchNumber;

bool kicksOffLater(const Match &a, const Match &b)
{
    if (a.kickoffDate.isValid() && b.kickoffDate.isValid() && a.kickoffDate != b.kickoffDate)
        return a.kickoffDate > b.kickoffDate;
    return a.matchNumber > b.matchNumber;
}

} // namespace

KnockoutBracket KnockoutBracket::from(const QList<Match> &matches)
{
    QHash<int, const Match *> byNumber;
    QSet<int> feedsAWinner;
    for (const Match &match : matches) {
        if (!match.isKnockout() || match.matchNumber == 0)
            continue;
        byNumber.insert(match.matchNumber, &match);
        for (const QString &slot : {match.homeSlotLabel, match.awaySlotLabel}) {
            if (const auto number = linkedMatchNumber(slot, Link::winner))
                feedsAWinner.insert(*number);
        }
    }
    const auto sourcesOf = [&byNumber](const Match &match) {
        QList<const Match *> sources;
        for (const QString &slot : {match.homeSlotLabel, match.awaySlotLabel}) {
            const auto number = linkedMatchNumber(slot, Link::winner);
            if (number && byNumber.contains(*number))
                sources.append(byNumber.value(*number));
        }
        return sources;
    };

    // The final: a game taking winners that gives its own winner to nobody; the latest if several do.
    const Match *root = nullptr;
    for (const Match &match : matches) {
        if (byNumber.value(match.matchNumber) != &match || feedsAWinner.contains(match.matchNumber) ||
            sourcesOf(match).isEmpty())
            continue;
        if (!root || kicksOffLater(match, *root))
            root = &match;
    }

    KnockoutBracket bracket;
    QSet<int> inTree;
    for (QList<const Match *> level = root ? QList{root} : QList<const Match *>{}; !level.isEmpty();) {
        BracketRound round;
        round.round = level.constFirst()->round;
        round.title = roundTitle(round.round);
        QList<const Match *> earlier;
        for (const Match *match : std::as_const(level)) {
            if (inTree.contains(match->matchNumber))
                continue; // a label pointing back into the tree would loop
            inTree.insert(match->matchNumber);
            round.games.append(*match);
            earlier += sourcesOf(*match);
        }
        bracket.rounds.prepend(round);
        level = earlier;
    }
    for (const Match &match : matches) {
        if (byNumber.value(match.matchNumber) == &match && !inTree.contains(match.matchNumber) &&
            (linkedMatchNumber(match.homeSlotLabel, Link::loser) ||
             linkedMatchNumber(match.awaySlotLabel, Link::loser)))
            bracket.placementGames.append(match);
    }

    const auto unfinished =
        std::find_if(bracket.rounds.cbegin(), bracket.rounds.cend(), [](const BracketRound &r) {
            return std::any_of(r.games.cbegin(), r.games.cend(),
                               [](const Match &game) { return game.status != MatchStatus::finished; });
        });
    bracket.currentRound = unfinished == bracket.rounds.cend() ? std::max<int>(0, bracket.rounds.size() - 1)
                                                               : int(unfinished - bracket.rounds.cbegin());
    return bracket;
}

std::optional<Match> KnockoutBracket::finalMatch() const
{
    if (rounds.isEmpty() || rounds.constLast().games.isEmpty())
        return std::nullopt;
    return rounds.constLast().games.constFirst();
}

std::optional<QString> KnockoutBracket::championTeamID() const
{
    const auto final = finalMatch();
    return final ? final->winnerTeamID : std::nullopt;
}

QString KnockoutBracket::championName() const
{
    const auto final = finalMatch();
    return final ? final->winnerName() : QString();
}

QVariant KnockoutBracket::finalMatchValue() const
{
    const auto final = finalMatch();
    return final ? QVariant::fromValue(*final) : QVariant();
}
