#include "Normalization.h"

#include "Networking/APIService.h"
#include "Support/TextMemo.h"
#include "Support/TextParsing.h"

#include <QRegularExpression>

#include <algorithm>

namespace Normalization {

namespace {

QString flagEmojiOf(const APITeam *team)
{
    return team ? team->flagEmoji() : QString();
}

const APITeam *find(const TeamTable &teams, const QString &id)
{
    const auto found = teams.constFind(id);
    return found == teams.constEnd() ? nullptr : &found.value();
}

bool presentAndNotEmpty(const std::optional<QString> &text)
{
    return text && !text->isEmpty();
}

} // namespace

QUrl flagURL(const APITeam &team)
{
    if (team.flag.isEmpty())
        return {};
    static TextMemo<QUrl> urlByText;
    return urlByText.get(team.flag, [](const QString &text) {
        const QUrl url(text, QUrl::StrictMode);
        return url.isValid() ? url : QUrl();
    });
}

Match normalizeMatch(const APIGame &game, const TeamTable &teamsByID, const StadiumTable &stadiumsByID,
                     const WCFormatters &formatters)
{
    const APITeam *home = find(teamsByID, game.homeTeamID);
    const APITeam *away = find(teamsByID, game.awayTeamID);
    const auto venueEntry = stadiumsByID.constFind(game.stadiumID);
    const APIStadium *venue = venueEntry == stadiumsByID.constEnd() ? nullptr : &venueEntry.value();

    Match match;
    match.id = game.id;
    match.matchNumber = TextParsing::parseInt(game.id).value_or(0);
    match.round = game.type.toUpper();
    match.groupName = game.group.size() == 1 ? game.group : QString();
    match.homeTeamID = game.homeTeamID;
    match.awayTeamID = game.awayTeamID;
    match.homeTeam = resolvedTeamName(game.homeTeamNameEn, home, game.homeTeamLabel);
    match.awayTeam = resolvedTeamName(game.awayTeamNameEn, away, game.awayTeamLabel);
    match.homeCode = code(home, match.homeTeam);
    match.awayCode = code(away, match.awayTeam);
    match.homeFlagEmoji = flagEmojiOf(home);
    match.awayFlagEmoji = flagEmojiOf(away);
    match.homeFlagURL = (home ? flagURL(*home) : QUrl());
    match.awayFlagURL = (away ? flagURL(*away) : QUrl());
    match.stadiumID = game.stadiumID;
    match.stadium = venue ? venue->nameEn : QStringLiteral("Venue TBD");
    match.city = venue ? venue->cityEn : QString();

    const std::optional<QTimeZone> venueZone = venue ? timeZone(*venue) : std::nullopt;
    match.kickoffDate = parseMatchDate(game.localDate, venueZone.value_or(formatters.timeZone()));
    match.kickoffLabel =
        match.kickoffDate.isValid() ? formatters.kickoffTime(match.kickoffDate) : game.localDate;

    match.status = APIService::status(game);
    match.homeScore = parsedScore(game.homeScore, match.status);
    match.awayScore = parsedScore(game.awayScore, match.status);
    match.liveClock = parseLiveClock(game.timeElapsed, match.status);
    match.minute = parseMinute(game.timeElapsed, match.status);
    match.homeScorers = scorerList(game.homeScorers);
    match.awayScorers = scorerList(game.awayScorers);
    match.homeSlotLabel = game.homeTeamLabel.value_or(QString());
    match.awaySlotLabel = game.awayTeamLabel.value_or(QString());
    return match;
}

GroupStanding normalizeStanding(const APIGroup &group, const TeamTable &teamsByID)
{
    QList<StandingRow> rows;
    rows.reserve(group.teams.size());
    for (const APIStandingTeam &feedRow : group.teams) {
        const APITeam *team = find(teamsByID, feedRow.teamID);
        const auto count = [](const QString &text) { return TextParsing::parseInt(text).value_or(0); };
        StandingRow row;
        row.teamID = feedRow.teamID;
        row.team = team ? team->nameEn : QStringLiteral("TBD");
        row.code = team ? team->fifaCode : QString();
        row.flagURL = team ? flagURL(*team) : QUrl();
        row.flagEmoji = flagEmojiOf(team);
        row.played = count(feedRow.played);
        row.won = count(feedRow.won);
        row.drawn = count(feedRow.drawn);
        row.lost = count(feedRow.lost);
        row.goalsFor = count(feedRow.goalsFor);
        row.goalsAgainst = count(feedRow.goalsAgainst);
        // The feed's own goal difference is shown, even where it disagrees with the goals.
        row.goalDifference = count(feedRow.goalDifference);
        row.points = count(feedRow.points);
        rows.append(row);
    }
    std::stable_sort(rows.begin(), rows.end(), [](const StandingRow &a, const StandingRow &b) {
        if (a.points != b.points)
            return a.points > b.points;
        if (a.goalDifference != b.goalDifference)
            return a.goalDifference > b.goalDifference;
        if (a.goalsFor != b.goalsFor)
            return a.goalsFor > b.goalsFor;
        if (a.won != b.won)
            return a.won > b.won;
        return a.team < b.team;
    });
    for (qsizetype index = 0; index < rows.size(); ++index)
        rows[index].position = int(index + 1);
    return GroupStanding{group.group, rows};
}

std::optional<QTimeZone> timeZone(const APIStadium &venue)
{
    static const QHash<QString, QByteArray> zoneByStadiumID = {
        {QStringLiteral("1"), "America/Mexico_City"},  {QStringLiteral("2"), "America/Mexico_City"},
        {QStringLiteral("3"), "America/Monterrey"},    {QStringLiteral("4"), "America/Chicago"},
        {QStringLiteral("5"), "America/Chicago"},      {QStringLiteral("6"), "America/Chicago"},
        {QStringLiteral("7"), "America/New_York"},     {QStringLiteral("8"), "America/New_York"},
        {QStringLiteral("9"), "America/New_York"},     {QStringLiteral("10"), "America/New_York"},
        {QStringLiteral("11"), "America/New_York"},    {QStringLiteral("12"), "America/Toronto"},
        {QStringLiteral("13"), "America/Vancouver"},   {QStringLiteral("14"), "America/Los_Angeles"},
        {QStringLiteral("15"), "America/Los_Angeles"}, {QStringLiteral("16"), "America/Los_Angeles"},
    };
    const auto known = zoneByStadiumID.constFind(venue.id);
    if (known != zoneByStadiumID.constEnd())
        return cachedTimeZone(*known);
    return fallbackTimeZone(venue.cityEn, venue.countryEn);
}

std::optional<QTimeZone> fallbackTimeZone(const QString &city, const QString &country)
{
    const QString place = city.toLower();
    const auto containsAny = [&place](std::initializer_list<const char *> words) {
        return std::any_of(words.begin(), words.end(),
                           [&place](const char *word) { return place.contains(QLatin1StringView(word)); });
    };
    if (country == QLatin1StringView("Canada")) {
        if (place.contains(QLatin1StringView("toronto")))
            return cachedTimeZone("America/Toronto");
        if (place.contains(QLatin1StringView("vancouver")))
            return cachedTimeZone("America/Vancouver");
    } else if (country == QLatin1StringView("Mexico")) {
        return cachedTimeZone(place.contains(QLatin1StringView("monterrey")) ? "America/Monterrey"
                                                                             : "America/Mexico_City");
    }
    if (containsAny({"angeles", "inglewood", "santa clara", "francisco", "seattle"}))
        return cachedTimeZone("America/Los_Angeles");
    if (containsAny({"dallas", "arlington", "houston", "kansas"}))
        return cachedTimeZone("America/Chicago");
    return cachedTimeZone("America/New_York");
}

QString resolvedTeamName(const std::optional<QString> &explicitName, const APITeam *team,
                         const std::optional<QString> &placeholder)
{
    if (presentAndNotEmpty(explicitName))
        return *explicitName;
    if (team)
        return team->nameEn;
    if (presentAndNotEmpty(placeholder))
        return *placeholder;
    return QStringLiteral("TBD");
}

QString code(const APITeam *team, const QString &fallbackName)
{
    if (team) {
        const QString fifaCode = team->fifaCode.trimmed().toUpper();
        if (!fifaCode.isEmpty())
            return fifaCode;
    }
    // Knockout placeholders ("Winner Group A") repeat in every body.
    static TextMemo<QString> codeByName;
    return codeByName.get(fallbackName, [](const QString &name) {
        static const QRegularExpression whiteSpace(QStringLiteral("\\s+"),
                                                   QRegularExpression::UseUnicodePropertiesOption);
        const QStringList words = name.split(whiteSpace, Qt::SkipEmptyParts).mid(0, 3);
        if (words.size() >= 2) {
            QString initials;
            for (const QString &word : words)
                initials += TextParsing::leadingCharacters(word, 1).toUpper();
            return initials;
        }
        return TextParsing::leadingCharacters(name, 3).toUpper();
    });
}

std::optional<int> parsedScore(const QString &text, MatchStatus status)
{
    if (status == MatchStatus::scheduled || text.isEmpty())
        return std::nullopt;
    return TextParsing::parseInt(text);
}

std::optional<QString> parseLiveClock(const QString &text, MatchStatus status)
{
    if (status != MatchStatus::inPlay)
        return std::nullopt;
    const QString clock = text.trimmed();
    if (clock.isEmpty())
        return std::nullopt;
    // \d must take any decimal digit, as in ICU, which PCRE2 does only with Unicode properties on.
    static const QRegularExpression pattern(QStringLiteral("(\\d+)(?:\\D*\\+\\D*(\\d+))?"),
                                            QRegularExpression::UseUnicodePropertiesOption);
    const QRegularExpressionMatch found = pattern.match(clock);
    if (!found.hasMatch())
        return std::nullopt;
    if (found.hasCaptured(2))
        return found.captured(1) + QStringLiteral("'+") + found.captured(2) + u'\'';
    return found.captured(1) + u'\'';
}

std::optional<int> parseMinute(const QString &text, MatchStatus status)
{
    if (status != MatchStatus::inPlay)
        return std::nullopt;
    QString digits;
    for (const QChar character : text) {
        if (character.isNumber())
            digits += character;
    }
    return TextParsing::parseInt(digits);
}

QStringList scorerList(const QString &text)
{
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty() || trimmed.compare(QLatin1StringView("null"), Qt::CaseInsensitive) == 0)
        return {};

    static const QRegularExpression quoted(QStringLiteral("\"([^\"]+)\""));
    QStringList entries;
    for (auto it = quoted.globalMatch(trimmed); it.hasNext();) {
        const QString entry = it.next().captured(1).trimmed();
        if (!entry.isEmpty())
            entries.append(entry);
    }
    if (!entries.isEmpty())
        return entries;

    QString plain = trimmed;
    for (const QChar removed : {u'{', u'}', u'[', u']', u'"', u'\\'})
        plain.remove(removed);
    for (const QString &piece : plain.split(u',', Qt::SkipEmptyParts)) {
        const QString entry = piece.trimmed();
        if (!entry.isEmpty() && entry.compare(QLatin1StringView("null"), Qt::CaseInsensitive) != 0)
            entries.append(entry);
    }
    return entries;
}

} // namespace Normalization
