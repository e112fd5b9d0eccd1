#include "SeedTables.h"

#include "Models/APIResponses.h"

#include <QFile>

#include <cstdio>
#include <cstdlib>

namespace {

[[noreturn]] void fail(const QString &why)
{
    std::fprintf(stderr, "%s\n", qPrintable(why));
    std::exit(EXIT_FAILURE);
}

template<typename Envelope>
Envelope decodedSeed(const char *name)
{
    auto decoded = Envelope::decode(seedFile(name));
    if (!decoded)
        fail(QLatin1StringView(name) + QStringLiteral(": ") + decoded.error().message);
    return std::move(decoded).value();
}

} // namespace

QByteArray seedFile(const char *name)
{
    QFile file(QStringLiteral(PITCHLARK_TEST_DATA "/service-seed/") + QLatin1StringView(name));
    if (!file.open(QIODevice::ReadOnly))
        fail(file.fileName() + QStringLiteral(": ") + file.errorString());
    return file.readAll();
}

SeedTables SeedTables::load()
{
    SeedTables tables;
    for (const APITeam &team : decodedSeed<APITeamsResponse>("football.teams.json").teams)
        tables.teams.insert(team.id, team);
    for (const APIStadium &stadium : decodedSeed<APIStadiumsResponse>("football.stadiums.json").stadiums)
        tables.stadiums.insert(stadium.id, stadium);
    return tables;
}
