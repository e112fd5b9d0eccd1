#pragma once

#include "FetchError.h"
#include "Models/APIGame.h"
#include "Models/MatchStatus.h"
#include "Support/Result.h"

#include <QByteArray>
#include <QDateTime>
#include <QHash>
#include <QNetworkAccessManager>
#include <QNetworkRequest>
#include <QSet>
#include <QString>

#include <QCoro/QCoroTask>

#include <array>
#include <chrono>
#include <optional>

// The program's only network client: fetches the four endpoints of the tournament data service,
// decodes them, and keeps the last body that decoded of each as a file so the next start has data.
class APIService {
public:
    // Fires when a transfer stalls, as the data service's own clients do.
    static constexpr std::chrono::milliseconds defaultTransferTimeout{25'000};
    // Ends a request whatever it is doing, so that a server dripping bytes cannot hold a fetch for ever.
    static constexpr std::chrono::milliseconds defaultRequestDeadline{60'000};
    // Real bodies are about 60 KB; anything this large is not a tournament feed.
    static constexpr qint64 maximumBodySize = 32 * 1024 * 1024;

    static inline const QString gamesPath = QStringLiteral("/get/games");
    static inline const QString teamsPath = QStringLiteral("/get/teams");
    static inline const QString stadiumsPath = QStringLiteral("/get/stadiums");
    static inline const QString groupsPath = QStringLiteral("/get/groups");

    explicit APIService(std::chrono::milliseconds transferTimeout = defaultTransferTimeout,
                        std::chrono::milliseconds requestDeadline = defaultRequestDeadline);
    APIService(const APIService &) = delete;
    APIService &operator=(const APIService &) = delete;

    // The one instance the program uses, made on first use on the main thread.
    static APIService &shared();

    // WC_API_BASE_URL from the environment, else from pitchlark.conf, else the real service. Read anew
    // for every request so a changed configuration takes effect at the next poll.
    static QString baseURL();
    Result<QNetworkRequest, AppError> makeRequest(const QString &path) const;

    // Fetches one endpoint and decodes it into its envelope (APIGamesResponse and the like). An answer
    // that lists nothing, or less than half of what the last good answer listed, fails like a body
    // that does not decode: the cache and the model keep the last good data.
    template<typename Envelope>
    QCoro::Task<Result<Envelope, FetchError>> decode(const QString &path)
    {
        const auto body = co_await fetchBody(path);
        if (!body)
            co_return Result<Envelope, FetchError>::failure(body.error());
        auto envelope = Envelope::decode(*body);
        if (!envelope)
            co_return Result<Envelope, FetchError>::failure(envelope.error());
        if (auto refusal = implausible(path, envelope->size(), heldCount<Envelope>(path)))
            co_return Result<Envelope, FetchError>::failure(std::move(*refusal));
        writeCache(path, *body);
        m_heldCounts.insert(path, envelope->size());
        co_return std::move(envelope).value();
    }

    // The local path of an endpoint's cache file ("/get/games" gives .../get_games.json).
    std::optional<QString> cacheURL(const QString &path) const;
    // The modification time of the newest cache file.
    std::optional<QDateTime> cacheTimestamp() const;

    static MatchStatus status(const APIGame &game);

private:
    // How many records the last good answer of the endpoint listed: this run's, else the cached one's.
    template<typename Envelope>
    qsizetype heldCount(const QString &path)
    {
        if (!m_heldCounts.contains(path)) {
            const auto cached = Envelope::decode(readCache(path));
            m_heldCounts.insert(path, cached ? cached->size() : 0);
        }
        return m_heldCounts.value(path);
    }
    std::optional<DecodeError> implausible(const QString &path, qsizetype count, qsizetype held);
    QByteArray readCache(const QString &path) const;

    QCoro::Task<Result<QByteArray, FetchError>> fetchBody(const QString &path);
    void writeCache(const QString &path, const QByteArray &body) const;
    const std::optional<QString> &cacheDirectory() const;

    std::chrono::milliseconds m_transferTimeout;
    std::chrono::milliseconds m_requestDeadline;
    QHash<QString, qsizetype> m_heldCounts;
    QSet<QString> m_reportedShrinks;
    QNetworkAccessManager m_network;
    mutable std::optional<std::optional<QString>> m_cacheDirectory;
};
