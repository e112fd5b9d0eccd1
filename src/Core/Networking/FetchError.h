#pragma once

#include "AppError.h"
#include "Models/FeedDecoding.h"

#include <QNetworkReply>
#include <QString>

#include <variant>

// The transport's own failure (no network, time-out, TLS, a body over the size limit), as Qt reports it.
struct TransportError {
    QNetworkReply::NetworkError code = QNetworkReply::UnknownNetworkError;
    QString message;
};

// Why one fetch of an endpoint gave no envelope: the service's answer, the transport, or the body.
class FetchError {
public:
    FetchError(AppError error) : m_error(error) {}
    FetchError(TransportError error) : m_error(std::move(error)) {}
    FetchError(DecodeError error) : m_error(std::move(error)) {}

    const AppError *appError() const { return std::get_if<AppError>(&m_error); }
    const TransportError *transportError() const { return std::get_if<TransportError>(&m_error); }
    const DecodeError *decodeError() const { return std::get_if<DecodeError>(&m_error); }

    QString description() const;

private:
    std::variant<AppError, TransportError, DecodeError> m_error;
};
