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

QJsonObject matchJson(const AppModel &model, const Match &match)
{
    const bool hidden = model.isScoreHidden(match.id);
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
        {QStringLiteral("scoreHidden"), hidden},
        {QStringLiteral("homeScore"), hidden ? QJsonValue() : optional(match.homeScore)},
        {QStringLiteral("awayScore"), hidden ? QJsonValue() : optional(match.awayScore)},
        {QStringLiteral("liveClock"), optional(match.liveClock)},
        {QStringLiteral("minute"), optional(match.minute)},
        {QStringLiteral("homeScorers"),
         QJsonArray::fromStringList(hidden ? QStringList() : match.homeScorers)},
        {QStringLiteral("awayScorers"),
         QJsonArray::fromStringList(hidden ? QStringList() : match.awayScorers)},
        {QStringLiteral("homeSlotLabel"), match.homeSlotLabel},
        {QStringLiteral("awaySlotLabel"), match.awaySlotLabel},
        // Extra time and penalties tell a draw; the winner tells the result.
        {QStringLiteral("wentToExtraTime"), hidden ? QJsonValue() : QJsonValue(match.wentToExtraTime)},
        {QStringLiteral("decidedOnPenalties"), hidden ? QJsonValue() : QJsonValue(match.decidedOnPenalties)},
        {QStringLiteral("winnerTeamID"), hidden ? QJsonValue() : optional(match.winnerTeamID)},
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

// With scores hidden a table gives results away by its order and its numbers: the teams go
// alphabetically, with nothing but who they are.
QJsonObject hiddenStandingRowJson(const StandingRow &row)
{
    return {{QStringLiteral("teamID"), row.teamID},
            {QStringLiteral("team"), row.team},
            {QStringLiteral("code"), row.code},
            {QStringLiteral("flagURL"), optional(row.flagURL)}};
}

QJsonObject groupJson(const AppModel &model, const GroupStanding &group)
{
    if (!model.hideScores())
        return {{QStringLiteral("group"), group.group},
                {QStringLiteral("standings"), arrayOf(group.standings, standingRowJson)}};
    QList<StandingRow> alphabetical = group.standings;
    std::stable_sort(alphabetical.begin(), alphabetical.end(),
                     [](const StandingRow &a, const StandingRow &b) { return a.team < b.team; });
    return {{QStringLiteral("group"), group.group},
            {QStringLiteral("standings"), arrayOf(alphabetical, hiddenStandingRowJson)}};
}

QJsonObject settingsJson(const AppModel &model)
{
    return {
        {QStringLiteral("favoriteTeamIDs"),
         QJsonArray::fromStringList(model.property("favoriteTeamIDs").toStringList())},
        {QStringLiteral("pinnedLiveMatchID"), optional(model.menuBar().pinnedLiveMatchID())},
        {QStringLiteral("trayDisplayMode"), rawValue(model.menuBar().displayMode())},
        {QStringLiteral("refreshInterval"), seconds(model.menuBar().refreshInterval())},
        {QStringLiteral("notificationsEnabled"), model.alerts().notificationsEnabled()},
        {QStringLiteral("notifyMatchStart"), model.alerts().notifyMatchStart()},
        {QStringLiteral("notifyGoals"), model.alerts().notifyGoals()},
        {QStringLiteral("notifyFullTime"), model.alerts().notifyFullTime()},
        {QStringLiteral("inAppBanners"), model.alerts().inAppBanners()},
        {QStringLiteral("glassBlur"), model.glass().blur()},
        {QStringLiteral("glassTintHue"), model.glass().tintHue()},
        {QStringLiteral("glassTint"), model.glass().tint()},
        {QStringLiteral("glassGrain"), model.glass().grain()},
        {QStringLiteral("surfaceOpacity"), model.glass().surfaceOpacity()},
        {QStringLiteral("floatingCards"), model.glass().floatingCards()},
        {QStringLiteral("hideScores"), model.hideScores()},
    };
}

// "🇵🇦 0–1 🏴 ENG  67'  Panama v England" for one live match, without the score while it is hidden.
QString liveLine(const AppModel &model, const Match &match)
{
    return model.trayLineFor(match) + QStringLiteral("  ") + match.fixtureName();
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
        lines << QStringLiteral("  ") + liveLine(model, match);
    const QList<Match> &today = model.matches();
    if (!today.isEmpty()) {
        const QDate day = QDate::fromString(model.navigation().selectedDate(), Qt::ISODate);
        lines << QString() << QLocale::c().toString(day, u"dddd, MMM d");
        for (const Match &match : today) {
            const bool hidden = model.isScoreHidden(match.id);
            const QString score = match.status == MatchStatus::scheduled || hidden ? QStringLiteral("v")
                                                                                   : match.scorelineDisplay();
            QString line = QStringLiteral("  %1  %2 %3 %4  %5")
                               .arg(hidden ? match.spoilerFreeStatusLabel() : match.compactStatusLabel(), -6)
                               .arg(match.homeTeam, score, match.awayTeam, match.venueLine());
            // "AET" or "Pens" in the status column; the shoot-out's winner is worth a word of its own.
            if (match.decidedOnPenalties && !hidden)
                line += QStringLiteral("  (") + match.kickoffDetailLabel() + u')';
            lines << line;
        }
    }
    if (model.bracket().championTeamID() && !model.hideScores())
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
    const auto toJson = [&model](const Match &match) { return matchJson(model, match); };
    return {
        {QStringLiteral("trayTitle"), optional(model.trayTitle())},
        {QStringLiteral("errorMessage"), optional(model.errorMessage())},
        {QStringLiteral("lastUpdated"), instant(model.lastUpdated())},
        {QStringLiteral("selectedDate"), model.navigation().selectedDate()},
        {QStringLiteral("settings"), settingsJson(model)},
        {QStringLiteral("liveMatches"), arrayOf(model.liveMatchesCache(), toJson)},
        {QStringLiteral("matches"), arrayOf(model.matches(), toJson)},
        {QStringLiteral("allMatches"), arrayOf(model.allMatches(), toJson)},
        {QStringLiteral("standings"),
         arrayOf(model.standings(),
                 [&model](const GroupStanding &group) { return groupJson(model, group); })},
        {QStringLiteral("championTeamID"),
         model.hideScores() ? QJsonValue() : optional(model.bracket().championTeamID())},
    };
}

QByteArray waybar(const AppModel &model)
{
    QStringList tooltip;
    for (const Match &match : model.liveMatchesCache())
        tooltip << liveLine(model, match);
    QString cssClass = QStringLiteral("idle");
    if (model.errorMessage()) {
        cssClass = QStringLiteral("error");
        tooltip << *model.errorMessage();
    } else if (model.trayTitle()) {
        cssClass = QStringLiteral("live");
    }
    if (tooltip.isEmpty())
        tooltip << QStringLiteral("No match is live.");
    // waybar reads both as Pango markup; escaped here, a team name is shown as written.
    const QJsonObject line{{QStringLiteral("text"), model.trayTitle().value_or(QString()).toHtmlEscaped()},
                           {QStringLiteral("tooltip"), tooltip.join(u'\n').toHtmlEscaped()},
                           {QStringLiteral("class"), cssClass}};
    return QJsonDocument(line).toJson(QJsonDocument::Compact);
}

} // namespace StatusReport
