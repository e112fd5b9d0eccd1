#include "DayFacts.h"

#include "KnockoutBracket.h"
#include "Support/WCFormatters.h"

#include <QMap>

DayFacts DayFacts::of(const QString &dateKey, const QList<Match> &matches, const KnockoutBracket &bracket,
                      const QDateTime &now, const WCFormatters &formatters)
{
    // The first match of each day, by day key (which sorts as the calendar does).
    QMap<QString, const Match *> firstOfDay;
    for (const Match &match : matches) {
        if (!match.kickoffDate.isValid())
            continue;
        const Match *&first = firstOfDay[formatters.dateKey(match.kickoffDate)];
        if (!first || match.kickoffDate < first->kickoffDate)
            first = &match;
    }

    DayFacts facts;
    if (firstOfDay.isEmpty()) {
        facts.kind = QStringLiteral("noMatches");
        return facts;
    }
    if (firstOfDay.contains(dateKey)) {
        facts.kind = QStringLiteral("matchDay");
        return facts;
    }
    const auto next = firstOfDay.upperBound(dateKey);
    if (next != firstOfDay.cend())
        facts.nextDateKey = next.key();
    if (next != firstOfDay.cbegin())
        facts.previousDateKey = std::prev(next).key();

    if (next == firstOfDay.cbegin()) {
        facts.kind = QStringLiteral("beforeTournament");
        facts.openingMatch = *next.value();
        const QString until = countdownText(now, next.value()->kickoffDate);
        if (!until.isEmpty())
            facts.countdown = QStringLiteral("Opening match ") + until;
    } else if (next == firstOfDay.cend()) {
        facts.kind = QStringLiteral("afterTournament");
        facts.finalMatch = bracket.finalMatch();
        facts.championTeamID = bracket.championTeamID().value_or(QString());
        facts.championName = bracket.championName();
    } else {
        facts.kind = QStringLiteral("restDay");
    }
    return facts;
}

QString DayFacts::countdownText(const QDateTime &now, const QDateTime &until)
{
    const qint64 minutes = now.secsTo(until) / 60;
    if (minutes <= 0)
        return {};
    const qint64 days = minutes / (24 * 60);
    if (days > 0)
        return days == 1 ? QStringLiteral("in 1 day") : QStringLiteral("in %1 days").arg(days);
    if (minutes >= 60)
        return QStringLiteral("in %1 h %2 min").arg(minutes / 60).arg(minutes % 60);
    return QStringLiteral("in %1 min").arg(minutes);
}
