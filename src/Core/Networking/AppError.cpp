#include "AppError.h"

AppError AppError::fromHttpStatus(int statusCode)
{
    switch (statusCode) {
    case 401:
    case 403:
        return unauthorized();
    case 429:
        return rateLimited();
    default:
        return serverError(statusCode);
    }
}

QString AppError::description() const
{
    switch (m_kind) {
    case Kind::serverError:
        return QStringLiteral("Server error %1.").arg(m_statusCode);
    case Kind::invalidURL:
        return QStringLiteral("Invalid API URL.");
    case Kind::unauthorized:
        return QStringLiteral("The API rejected the request.");
    case Kind::rateLimited:
        return QStringLiteral("Rate limited \u2014 retrying soon.");
    }
    Q_UNREACHABLE();
    return {};
}
