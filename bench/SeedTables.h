#pragma once

#include "State/Normalization.h"

#include <QByteArray>

// The data service's seed export from tests/data, for the benchmark and the fuzzer. A seed file that cannot
// be read or decoded ends the program with a message: nothing can be measured or fuzzed without it.

QByteArray seedFile(const char *name);

// The seed's teams and stadiums keyed by id, as the app model keeps them for normalisation.
struct SeedTables {
    TeamTable teams;
    StadiumTable stadiums;

    static SeedTables load();
};
