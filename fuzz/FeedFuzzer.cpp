// libFuzzer target: one input is tried as the body of each of the four endpoints, and whatever decodes is
// normalised as the app model would. Games are looked up in the seed's teams and stadiums, overlaid with any
// the same input decodes to, so that both real and hostile tables are reached.

#include "SeedTables.h"

#include "Models/APIResponses.h"
#include "State/Normalization.h"

#include <QStringList>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

const SeedTables &seedTables()
{
    static const SeedTables tables = SeedTables::load();
    return tables;
}

// Every text the panel shows for a match; the sanitizers judge them.
void makeDerivedTexts(const Match &match)
{
    const QStringList texts{match.venueLine(),        match.scorelineDisplay(),   match.displayHomeScore(),
                            match.displayAwayScore(), match.compactStatusLabel(), match.kickoffDetailLabel(),
                            match.roundLabel(),       match.kickoffFullLabel(),   match.trayMenuBarTitle(),
                            match.statusText()};
}

void normaliseGames(const QList<APIGame> &games, const SeedTables &tables)
{
    for (const APIGame &game : games) {
        const Match match = Normalization::normalizeMatch(game, tables.teams, tables.stadiums);
        // Normalisation is pure: a second pass that differs means state leaked from one call into the next.
        if (!(Normalization::normalizeMatch(game, tables.teams, tables.stadiums) == match))
            std::abort();
        makeDerivedTexts(match);
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    seedTables();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray body(reinterpret_cast<const char *>(data), qsizetype(size));

    SeedTables tables = seedTables();
    if (const auto decoded = APITeamsResponse::decode(body)) {
        for (const APITeam &team : decoded->teams)
            tables.teams.insert(team.id, team);
    }
    if (const auto decoded = APIStadiumsResponse::decode(body)) {
        for (const APIStadium &stadium : decoded->stadiums)
            tables.stadiums.insert(stadium.id, stadium);
    }
    if (const auto decoded = APIGamesResponse::decode(body))
        normaliseGames(decoded->games, tables);
    if (const auto decoded = APIGroupsResponse::decode(body)) {
        for (const APIGroup &group : decoded->groups)
            Normalization::normalizeStanding(group, tables.teams);
    }
    return 0;
}
