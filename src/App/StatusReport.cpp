#include "StatusReport.h"

#include "State/AppModel.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QLocale>

namespace {

QJsonValue optional(const std::optional<QString> &text)
{
    return text ? QJsonValue(*text) : QJsonValue();
}
QJsonValue optional(const std::optional<int> &number)
{
    return number ? QJsonValue(*number) : QJsonValue();
}
QJsonValue optional(const QUrl &url)
{
    return url.isEmpty() ? QJsonValue() : QJsonValue(url.toString());
}

// ISO 8601 in UTC ending in "Z"; null when absent.
QJsonValue instant(const QDateTime &dateTime)
{
    return dateTime.isValid() ? QJsonValue(dateTime.toUTC().toString(Qt::ISODate)) : QJsonValue();
}

QJsonObject matchJson(const Match &match)
{
    return {
        {QStringLiteral("id"), match.id},
        {QStringLiteral("matchNumber"), match.matchNumber},
        {QStringLiteral("round"), match.round},
        {QStringLiteral("groupName"), match.groupName},
        {QStringLiteral("homeTeamID"), match.homeTeamID},
        {QStringLiteral("awayTeamID"), match.awayTeamID},
        {QStringLiteral("homeTeam"), match.homeTeam},
        {QStringLiteral("awayTeam"), match.awayTeam},
        {QStringLiteral("homeCode"), match.homeCode},
        {QStringLiteral("awayCode"), match.awayCode},
        {QStringLiteral("homeFlagEmoji"), match.homeFlagEmoji},
        {QStringLiteral("awayFlagEmoji"), match.awayFlagEmoji},
        {QStringLiteral("homeFlagURL"), optional(match.homeFlagURL)},
        {QStringLiteral("awayFlagURL"), optional(match.awayFlagURL)},
        {QStringLiteral("stadiumID"), match.stadiumID},
        {QStringLiteral("stadium"), match.stadium},
        {QStringLiteral("city"), match.city},
        {QStringLiteral("kickoffDate"), instant(match.kickoffDate)},
        {QStringLiteral("kickoffLabel"), match.kickoffLabel},
        {QStringLiteral("status"), rawValue(match.status)},
        {QStringLiteral("homeScore"), optional(match.homeScore)},
        {QStringLiteral("awayScore"), optional(match.awayScore)},
        {QStringLiteral("liveClock"), optional(match.liveClock)},
        {QStringLiteral("minute"), optional(match.minute)},
        {QStringLiteral("homeScorers"), QJsonArray::fromStringList(match.homeScorers)},
        {QStringLiteral("awayScorers"), QJsonArray::fromStringList(match.awayScorers)},
        {QStringLiteral("homeSlotLabel"), match.homeSlotLabel},
        {QStringLiteral("awaySlotLabel"), match.awaySlotLabel},
        {QStringLiteral("wentToExtraTime"), match.wentToExtraTime},
        {QStringLiteral("decidedOnPenalties"), match.decidedOnPenalties},
        {QStringLiteral("winnerTeamID"), optional(match.winnerTeamID)},
    };
}

QJsonObject standingRowJson(const StandingRow &row)
{
    return {
        {QStringLiteral("teamID"), row.teamID},
        {QStringLiteral("position"), row.position},
        {QStringLiteral("team"), row.team},
        {QStringLiteral("code"), row.code},
        {QStringLiteral("flagURL"), optional(row.flagURL)},
        {QStringLiteral("played"), row.played},
        {QStringLiteral("won"), row.won},
        {QStringLiteral("drawn"), row.drawn},
        {QStringLiteral("lost"), row.lost},
        {QStringLiteral("goalsFor"), row.goalsFor},
        {QStringLiteral("goalsAgainst"), row.goalsAgainst},
        {QStringLiteral("goalDifference"), row.goalDifference},
        {QStringLiteral("points"), row.points},
    };
}

template<typename Record, typename ToJson>
QJsonArray arrayOf(const QList<Record> &records, ToJson toJson)
{
    QJsonArray array;
    for (const Record &record : records)
        array.append(toJson(record));
    return array;
}

QJsonObject groupJson(const GroupStanding &group)
{
    return {{QStringLiteral("group"), group.group},
            {QStringLiteral("standings"), arrayOf(group.standings, standingRowJson)}};
}

QJsonObject settingsJson(const AppModel &model)
{
    return {
        {QStringLiteral("favoriteTeamIDs"),
         QJsonArray::fromStringList(model.property("favoriteTeamIDs").toStringList())},
        {QStringLiteral("pinnedLiveMatchID"), optional(model.pinnedLiveMatchID())},
        {QStringLiteral("trayDisplayMode"), rawValue(model.trayDisplayMode())},
        {QStringLiteral("refreshInterval"), seconds(model.refreshInterval())},
        {QStringLiteral("notificationsEnabled"), model.notificationsEnabled()},
        {QStringLiteral("notifyMatchStart"), model.notifyMatchStart()},
        {QStringLiteral("notifyGoals"), model.notifyGoals()},
        {QStringLiteral("notifyFullTime"), model.notifyFullTime()},
        {QStringLiteral("inAppBanners"), model.inAppBanners()},
        {QStringLiteral("glassBlur"), model.glassBlur()},
        {QStringLiteral("glassTintHue"), model.glassTintHue()},
        {QStringLiteral("glassTint"), model.glassTint()},
        {QStringLiteral("glassGrain"), model.glassGrain()},
        {QStringLiteral("surfaceOpacity"), model.surfaceOpacity()},
        {QStringLiteral("floatingCards"), model.floatingCards()},
    };
}

// "🇵🇦 0–1 🏴 ENG  67'  Panama v England" for one live match.
QString liveLine(const Match &match)
{
    return match.trayMenuBarTitle() + QStringLiteral("  ") + match.compactStatusLabel() +
           QStringLiteral("  ") + match.homeTeam + QStringLiteral(" v ") + match.awayTeam;
}

} // namespace

namespace StatusReport {

QString text(const AppModel &model)
{
    QStringList lines;
    if (model.errorMessage())
        lines << *model.errorMessage();
    lines << (model.trayTitle() ? QStringLiteral("Now: ") + *model.trayTitle()
                                : QStringLiteral("No match is live."));
    for (const Match &match : model.liveMatchesCache())
        lines << QStringLiteral("  ") + liveLine(match);
    const QList<Match> &today = model.matches();
    if (!today.isEmpty()) {
        const QDate day = QDate::fromString(model.selectedDate(), Qt::ISODate);
        lines << QString() << QLocale::c().toString(day, u"dddd, MMM d");
        for (const Match &match : today) {
            const QString score =
                match.status == MatchStatus::scheduled ? QStringLiteral("v") : match.scorelineDisplay();
            QString line = QStringLiteral("  %1  %2 %3 %4  %5")
                               .arg(match.compactStatusLabel(), -6)
                               .arg(match.homeTeam, score, match.awayTeam, match.venueLine());
            // "AET" or "Pens" in the status column; the shoot-out's winner is worth a word of its own.
            if (match.decidedOnPenalties)
                line += QStringLiteral("  (") + match.kickoffDetailLabel() + u')';
            lines << line;
        }
    }
    if (model.bracket().championTeamID())
        lines << QString() << QStringLiteral("Champion: ") + model.bracket().championName();
    if (model.lastUpdated().isValid()) {
        lines << QString()
              << QStringLiteral("Updated ") +
                     QLocale::c().toString(model.lastUpdated().toTimeZone(WCFormatters::shared().timeZone()),
                                           u"ddd, MMM d HH:mm:ss");
    }
    return lines.join(u'\n');
}

QJsonObject json(const AppModel &model)
{
    return {
        {QStringLiteral("trayTitle"), optional(model.trayTitle())},
        {QStringLiteral("errorMessage"), optional(model.errorMessage())},
        {QStringLiteral("lastUpdated"), instant(model.lastUpdated())},
        {QStringLiteral("selectedDate"), model.selectedDate()},
        {QStringLiteral("settings"), settingsJson(model)},
        {QStringLiteral("liveMatches"), arrayOf(model.liveMatchesCache(), matchJson)},
        {QStringLiteral("matches"), arrayOf(model.matches(), matchJson)},
        {QStringLiteral("allMatches"), arrayOf(model.allMatches(), matchJson)},
        {QStringLiteral("standings"), arrayOf(model.standings(), groupJson)},
        {QStringLiteral("championTeamID"), optional(model.bracket().championTeamID())},
    };
}

QByteArray waybar(const AppModel &model)
{
    QStringList tooltip;
    for (const Match &match : model.liveMatchesCache())
        tooltip << liveLine(match);
    QString cssClass = QStringLiteral("idle");
    if (model.errorMessage()) {
        cssClass = QStringLiteral("error");
        tooltip << *model.errorMessage();
    } else if (model.trayTitle()) {
        cssClass = QStringLiteral("live");
    }
    if (tooltip.isEmpty())
        tooltip << QStringLiteral("No match is live.");
    const QJsonObject line{{QStringLiteral("text"), model.trayTitle().value_or(QString())},
                           {QStringLiteral("tooltip"), tooltip.join(u'\n')},
                           {QStringLiteral("class"), cssClass}};
    return QJsonDocument(line).toJson(QJsonDocument::Compact);
}

} // namespace StatusReport
