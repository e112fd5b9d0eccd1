#pragma once

#include "Networking/APIService.h"

#include <QEventLoop>

#include <optional>

// Runs one fetch to its end in a local event loop. QCoro::waitFor() wants a default-constructible
// result, which a Result deliberately is not.
template<typename Envelope>
Result<Envelope, FetchError> fetchAndWait(APIService &service, const QString &path)
{
    std::optional<Result<Envelope, FetchError>> result;
    QEventLoop loop;
    auto continuation = service.decode<Envelope>(path).then([&](Result<Envelope, FetchError> &&value) {
        result.emplace(std::move(value));
        loop.quit();
    });
    if (!result)
        loop.exec();
    return std::move(*result);
}
