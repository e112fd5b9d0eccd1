#pragma once

#include "APIGame.h"
#include "APIGroup.h"
#include "APIStadium.h"
#include "APITeam.h"
#include "FeedDecoding.h"

#include <QByteArray>
#include <QList>

// The four endpoint bodies. Each holds one list under its envelope key, or is that list bare.

struct APIGamesResponse {
    QList<APIGame> games;
    static Result<APIGamesResponse, DecodeError> decode(const QByteArray &body);
    qsizetype size() const { return games.size(); }
};

struct APITeamsResponse {
    QList<APITeam> teams;
    static Result<APITeamsResponse, DecodeError> decode(const QByteArray &body);
    qsizetype size() const { return teams.size(); }
};

struct APIStadiumsResponse {
    QList<APIStadium> stadiums;
    static Result<APIStadiumsResponse, DecodeError> decode(const QByteArray &body);
    qsizetype size() const { return stadiums.size(); }
};

struct APIGroupsResponse {
    QList<APIGroup> groups;
    static Result<APIGroupsResponse, DecodeError> decode(const QByteArray &body);
    qsizetype size() const { return groups.size(); }
};
