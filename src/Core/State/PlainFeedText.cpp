#include "PlainFeedText.h"

#include <algorithm>

namespace PlainFeedText {

namespace {

enum class Treatment { keep, space, drop };

Treatment treatment(char16_t c)
{
    if (c == u'\n' || c == u'\r' || c == u'\t' || c == u'\v' || c == u'\f' || c == 0x85 || c == 0x2028 ||
        c == 0x2029)
        return Treatment::space;
    if (c < 0x20 || (c >= 0x7f && c <= 0x9f))
        return Treatment::drop;
    // LRE, RLE, PDF, LRO, RLO and LRI, RLI, FSI, PDI. The plain marks (LRM, RLM) cannot reorder text.
    if ((c >= 0x202a && c <= 0x202e) || (c >= 0x2066 && c <= 0x2069))
        return Treatment::drop;
    return Treatment::keep;
}

void makePlain(QStringList &texts)
{
    for (QString &text : texts)
        text = plain(text);
}

} // namespace

QString plain(const QString &text)
{
    // Almost every feed text is already plain: hand it back shared, without a copy.
    const bool clean = text.size() <= maximumLength && std::all_of(text.cbegin(), text.cend(), [](QChar c) {
                           return treatment(c.unicode()) == Treatment::keep;
                       });
    if (clean)
        return text;

    QString result;
    result.reserve(std::min(text.size(), maximumLength));
    for (const QChar c : text) {
        switch (treatment(c.unicode())) {
        case Treatment::keep:
            result.append(c);
            break;
        case Treatment::space:
            result.append(u' ');
            break;
        case Treatment::drop:
            break;
        }
    }
    if (result.size() > maximumLength) {
        qsizetype cut = maximumLength - 1;
        // Never split a surrogate pair: half an emoji is not a character.
        if (result.at(cut - 1).isHighSurrogate())
            --cut;
        result.truncate(cut);
        result.append(u'…');
    }
    return result;
}

Match plain(Match match)
{
    for (QString *text : {&match.round, &match.groupName, &match.homeTeam, &match.awayTeam, &match.homeCode,
                          &match.awayCode, &match.stadium, &match.city, &match.kickoffLabel})
        *text = plain(*text);
    makePlain(match.homeScorers);
    makePlain(match.awayScorers);
    return match;
}

GroupStanding plain(GroupStanding standing)
{
    standing.group = plain(standing.group);
    for (StandingRow &row : standing.standings) {
        row.team = plain(row.team);
        row.code = plain(row.code);
    }
    return standing;
}

APITeam plain(APITeam team)
{
    for (QString *text : {&team.nameEn, &team.fifaCode, &team.groups})
        *text = plain(*text);
    return team;
}

APIStadium plain(APIStadium stadium)
{
    for (QString *text :
         {&stadium.nameEn, &stadium.fifaName, &stadium.cityEn, &stadium.countryEn, &stadium.region})
        *text = plain(*text);
    return stadium;
}

} // namespace PlainFeedText
