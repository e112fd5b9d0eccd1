#include "Match.h"

#include "Support/WCFormatters.h"

namespace {

const QString enDash = QStringLiteral("\u2013");

QString scoreOrDash(const std::optional<int> &score, const QString &dash)
{
    return score ? QString::number(*score) : dash;
}

QString trayMark(const QString &flagEmoji, const QString &code)
{
    return flagEmoji.isEmpty() ? code : flagEmoji;
}

} // namespace

QString Match::venueLine() const
{
    return city.isEmpty() ? stadium : stadium + QStringLiteral(" \u00b7 ") + city;
}

QString Match::scorelineDisplay() const
{
    return scoreOrDash(homeScore, enDash) + QStringLiteral(" \u2013 ") + scoreOrDash(awayScore, enDash);
}

QString Match::displayHomeScore() const
{
    return status == MatchStatus::scheduled ? enDash : scoreOrDash(homeScore, enDash);
}

QString Match::displayAwayScore() const
{
    return status == MatchStatus::scheduled ? enDash : scoreOrDash(awayScore, enDash);
}

QString Match::compactStatusLabel() const
{
    switch (status) {
    case MatchStatus::scheduled:
        return kickoffLabel;
    case MatchStatus::inPlay:
        if (liveClock)
            return *liveClock;
        if (minute)
            return QString::number(*minute) + u'\'';
        return QStringLiteral("LIVE");
    case MatchStatus::halfTime:
        return QStringLiteral("HT");
    case MatchStatus::finished:
        if (decidedOnPenalties)
            return QStringLiteral("Pens");
        return wentToExtraTime ? QStringLiteral("AET") : QStringLiteral("FT");
    }
    Q_UNREACHABLE();
    return {};
}

QString Match::kickoffDetailLabel() const
{
    switch (status) {
    case MatchStatus::scheduled:
        return QStringLiteral("Kickoff ") + kickoffLabel;
    case MatchStatus::inPlay:
        if (liveClock)
            return *liveClock + QStringLiteral(" elapsed");
        if (minute)
            return QString::number(*minute) + QStringLiteral("' elapsed");
        return QStringLiteral("Live now");
    case MatchStatus::halfTime:
        return QStringLiteral("Half-time");
    case MatchStatus::finished:
        if (decidedOnPenalties) {
            // The feed never says who won a shoot-out; until the next round names the side, say only how.
            return winnerTeamID ? winnerName() + QStringLiteral(" win on penalties")
                                : QStringLiteral("Decided on penalties");
        }
        return wentToExtraTime ? QStringLiteral("After extra time") : QStringLiteral("Full-time");
    }
    Q_UNREACHABLE();
    return {};
}

QString Match::spoilerFreeStatusLabel() const
{
    return status == MatchStatus::finished ? QStringLiteral("FT") : compactStatusLabel();
}

QString Match::spoilerFreeDetailLabel() const
{
    return status == MatchStatus::finished ? QStringLiteral("Full-time") : kickoffDetailLabel();
}

QString Match::winnerName() const
{
    if (!winnerTeamID)
        return {};
    return *winnerTeamID == homeTeamID ? homeTeam : awayTeam;
}

QString Match::roundLabel() const
{
    if (groupName.isEmpty())
        return round;
    if (round == QLatin1StringView("GROUP"))
        return QStringLiteral("Group ") + groupName;
    return round + QStringLiteral(" \u00b7 Group ") + groupName;
}

QString Match::kickoffFullLabel() const
{
    return kickoffDate.isValid() ? WCFormatters::shared().kickoffFull(kickoffDate) : kickoffLabel;
}

QString Match::spoilerFreeTitle() const
{
    return trayMark(homeFlagEmoji, homeCode) + QStringLiteral(" v ") + trayMark(awayFlagEmoji, awayCode) +
           QStringLiteral(" \u00b7 ") + spoilerFreeStatusLabel();
}

QString Match::fixtureName() const
{
    return homeTeam + QStringLiteral(" v ") + awayTeam;
}

QString Match::kickoffDatedLabel(const WCFormatters &formatters) const
{
    return kickoffDate.isValid() ? formatters.kickoffDated(kickoffDate) : kickoffLabel;
}

QString Match::kickoffDatedLabel() const
{
    return kickoffDatedLabel(WCFormatters::shared());
}

QString Match::trayMenuBarTitle() const
{
    // The menu bar is narrow: no spaces around the dash, and a plain hyphen for a missing score.
    const QString hyphen = QStringLiteral("-");
    return trayMark(homeFlagEmoji, homeCode) + u' ' + scoreOrDash(homeScore, hyphen) + enDash +
           scoreOrDash(awayScore, hyphen) + u' ' + trayMark(awayFlagEmoji, awayCode);
}
