#include "APIResponses.h"

namespace {

template<typename Envelope, typename Record>
Result<Envelope, DecodeError> decodeEnvelope(const QByteArray &body, const char *key)
{
    auto records = FeedDecoding::decodeList<Record>(body, QLatin1StringView(key));
    if (!records)
        return Result<Envelope, DecodeError>::failure(records.error());
    return Envelope{std::move(records).value()};
}

} // namespace

Result<APIGamesResponse, DecodeError> APIGamesResponse::decode(const QByteArray &body)
{
    return decodeEnvelope<APIGamesResponse, APIGame>(body, "games");
}

Result<APITeamsResponse, DecodeError> APITeamsResponse::decode(const QByteArray &body)
{
    return decodeEnvelope<APITeamsResponse, APITeam>(body, "teams");
}

Result<APIStadiumsResponse, DecodeError> APIStadiumsResponse::decode(const QByteArray &body)
{
    return decodeEnvelope<APIStadiumsResponse, APIStadium>(body, "stadiums");
}

Result<APIGroupsResponse, DecodeError> APIGroupsResponse::decode(const QByteArray &body)
{
    return decodeEnvelope<APIGroupsResponse, APIGroup>(body, "groups");
}
