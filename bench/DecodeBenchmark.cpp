// Times decoding and normalising a games body against the bare JSON parse of the same bytes, for the
// tournament's 104 games and for a hundred times as many.

#include "LiveGamesBody.h"
#include "SeedTables.h"

#include "Models/APIResponses.h"
#include "State/Normalization.h"

#include <QElapsedTimer>
#include <QJsonDocument>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

struct Figures {
    qsizetype games = 0;
    qsizetype bytes = 0;
    double parseMicroseconds = 0;
    double decodeMicroseconds = 0;
    double normaliseMicroseconds = 0;
    double totalMicroseconds = 0;

    double microsecondsPerGame() const { return totalMicroseconds / double(games); }
    double parseRatio() const { return totalMicroseconds / parseMicroseconds; }
};

double median(QList<qint64> nanoseconds)
{
    const auto middle = nanoseconds.begin() + nanoseconds.size() / 2;
    std::nth_element(nanoseconds.begin(), middle, nanoseconds.end());
    return double(*middle) / 1000.0;
}

// Medians over the runs; one untimed run first fills the regular expression and time zone caches, as a
// running program has them filled after its first refresh.
Figures measure(const QByteArray &body, const SeedTables &tables, int runs)
{
    QList<qint64> parse, decode, normalise, total;
    QElapsedTimer timer;
    qsizetype games = 0;
    for (int run = -1; run < runs; ++run) {
        QList<Match> matches;
        timer.start();
        const QJsonDocument document = QJsonDocument::fromJson(body);
        const qint64 parsed = timer.nsecsElapsed();

        timer.start();
        auto decoded = APIGamesResponse::decode(body);
        const qint64 decodedAt = timer.nsecsElapsed();
        if (!decoded) {
            std::fprintf(stderr, "bench_decode: %s\n", qPrintable(decoded.error().message));
            std::exit(EXIT_FAILURE);
        }
        matches.reserve(decoded->games.size());
        for (const APIGame &game : decoded->games)
            matches.append(Normalization::normalizeMatch(game, tables.teams, tables.stadiums));
        const qint64 normalisedAt = timer.nsecsElapsed();

        games = matches.size();
        if (run < 0)
            continue;
        parse.append(parsed);
        decode.append(decodedAt);
        normalise.append(normalisedAt - decodedAt);
        total.append(normalisedAt);
    }
    return {games, body.size(), median(parse), median(decode), median(normalise), median(total)};
}

void printRow(const Figures &figures, int runs)
{
    std::printf("%6lld %9lld %5d %11.0f %9.0f %10.0f %9.0f %8.2f %11.2fx\n", qlonglong(figures.games),
                qlonglong(figures.bytes), runs, figures.parseMicroseconds, figures.decodeMicroseconds,
                figures.normaliseMicroseconds, figures.totalMicroseconds, figures.microsecondsPerGame(),
                figures.parseRatio());
}

const char *verdict(bool met)
{
    return met ? "met" : "MISSED";
}

} // namespace

int main()
{
    constexpr int copies = 100;
    constexpr int tournamentRuns = 201;
    constexpr int scaledRuns = 11;
    // Per-game cost may drift a little with a body that no longer fits the caches; a cost that grows with
    // the number of games would multiply it by about the hundredfold growth.
    constexpr double linearTolerance = 1.5;

    const SeedTables tables = SeedTables::load();
    const auto seedGames = QJsonDocument::fromJson(seedFile("football.matches.json")).array();
    const QJsonArray tournament = LiveGamesBody::duringMatchdayTwo(seedGames);

    const Figures small = measure(LiveGamesBody::envelope(tournament), tables, tournamentRuns);
    const Figures large =
        measure(LiveGamesBody::envelope(LiveGamesBody::repeated(tournament, copies)), tables, scaledRuns);

    std::printf("Decoding and normalising a games body (medians of the timed runs, µs)\n");
    std::printf(" games     bytes  runs  bare parse    decode  normalise     total  µs/game  total/parse\n");
    printRow(small, tournamentRuns);
    printRow(large, scaledRuns);
    std::printf("decode: APIGamesResponse::decode, its own JSON parse included; total: decode + normalise\n");

    const double growth = large.microsecondsPerGame() / small.microsecondsPerGame();
    std::printf("\nTargets\n");
    std::printf("  under 2 ms for %lld games:   %.2f ms  %s\n", qlonglong(small.games),
                small.totalMicroseconds / 1000.0, verdict(small.totalMicroseconds < 2000.0));
    std::printf(
        "  cost linear in games:       µs/game at %lld games is %.2fx that at %lld (up to %.1fx)  %s\n",
        qlonglong(large.games), growth, qlonglong(small.games), linearTolerance,
        verdict(growth <= linearTolerance));
    std::printf("  at most 4x the bare parse:  %.2fx and %.2fx  %s\n", small.parseRatio(), large.parseRatio(),
                verdict(small.parseRatio() <= 4.0 && large.parseRatio() <= 4.0));
    return EXIT_SUCCESS;
}
