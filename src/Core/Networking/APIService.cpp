#include "APIService.h"

#include "Support/ConfigLocation.h"
#include "Support/Logging.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QSettings>
#include <QStandardPaths>
#include <QTimer>
#include <QUrl>

#include <QCoro/QCoroNetworkReply>

#include <memory>

namespace {

const QString defaultBaseURL = QStringLiteral("https://worldcup26.ir");
const QString baseURLKey = QStringLiteral("WC_API_BASE_URL");

struct ReplyDeleter {
    void operator()(QNetworkReply *reply) const { reply->deleteLater(); }
};

QString trimmedOfSpacesAndTabs(const QString &text)
{
    qsizetype start = 0;
    qsizetype end = text.size();
    const auto blank = [](QChar c) { return c == u' ' || c == u'\t'; };
    while (start < end && blank(text[start]))
        ++start;
    while (end > start && blank(text[end - 1]))
        --end;
    return text.sliced(start, end - start);
}

} // namespace

APIService::APIService(std::chrono::milliseconds transferTimeout, std::chrono::milliseconds requestDeadline)
    : m_transferTimeout(transferTimeout), m_requestDeadline(requestDeadline)
{
    // Every request goes to the network: there is deliberately no QNetworkDiskCache, and Qt's default
    // redirect policy already refuses to follow https to http.
    m_network.setCache(nullptr);
}

APIService &APIService::shared()
{
    static APIService service;
    return service;
}

QString APIService::baseURL()
{
    if (qEnvironmentVariableIsSet("WC_API_BASE_URL"))
        return qEnvironmentVariable("WC_API_BASE_URL");
    const QSettings config(pitchlarkConfigFilePath(), QSettings::IniFormat);
    const QVariant configured = config.value(baseURLKey);
    // QSettings reads an unquoted value holding a comma as a list; the URL is the text as written.
    if (configured.typeId() == QMetaType::QStringList)
        return configured.toStringList().join(u',');
    if (configured.typeId() == QMetaType::QString)
        return configured.toString();
    return defaultBaseURL;
}

Result<QNetworkRequest, AppError> APIService::makeRequest(const QString &path) const
{
    const QUrl url(baseURL() + path, QUrl::StrictMode);
    if (!url.isValid() || url.isRelative() || url.host().isEmpty())
        return Result<QNetworkRequest, AppError>::failure(AppError::invalidURL());
    QNetworkRequest request(url);
    request.setRawHeader("Accept", "application/json");
    request.setTransferTimeout(int(m_transferTimeout.count()));
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    return request;
}

QCoro::Task<Result<QByteArray, FetchError>> APIService::fetchBody(const QString &path)
{
    using BodyResult = Result<QByteArray, FetchError>;
    const auto request = makeRequest(path);
    if (!request)
        co_return BodyResult::failure(request.error());

    std::unique_ptr<QNetworkReply, ReplyDeleter> reply(m_network.get(*request));
    bool pastDeadline = false;
    QTimer deadline;
    deadline.setSingleShot(true);
    QObject::connect(&deadline, &QTimer::timeout, reply.get(), [&pastDeadline, raw = reply.get()] {
        pastDeadline = true;
        raw->abort();
    });
    deadline.start(m_requestDeadline);
    bool oversized = false;
    QObject::connect(reply.get(), &QNetworkReply::downloadProgress, reply.get(),
                     [&oversized, raw = reply.get()](qint64 received, qint64 total) {
                         if (!oversized && (received > maximumBodySize || total > maximumBodySize)) {
                             oversized = true;
                             raw->abort();
                         }
                     });
    co_await reply.get();

    if (pastDeadline) {
        qCDebug(lcNetwork) << path << "gave no complete answer within" << m_requestDeadline.count() << "ms";
        co_return BodyResult::failure(
            TransportError{QNetworkReply::TimeoutError, QStringLiteral("No complete answer in time.")});
    }
    if (oversized) {
        qCDebug(lcNetwork) << path << "body over" << maximumBodySize << "bytes";
        co_return BodyResult::failure(TransportError{QNetworkReply::OperationCanceledError,
                                                     QStringLiteral("Response body exceeds 32 MiB.")});
    }
    const QVariant statusAttribute = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute);
    if (statusAttribute.isValid()) {
        const int statusCode = statusAttribute.toInt();
        if (statusCode < 200 || statusCode > 299) {
            qCDebug(lcNetwork) << path << "answered" << statusCode;
            co_return BodyResult::failure(AppError::fromHttpStatus(statusCode));
        }
    }
    if (reply->error() != QNetworkReply::NoError) {
        qCDebug(lcNetwork) << path << "failed:" << reply->errorString();
        co_return BodyResult::failure(TransportError{reply->error(), reply->errorString()});
    }
    co_return reply->readAll();
}

const std::optional<QString> &APIService::cacheDirectory() const
{
    if (!m_cacheDirectory) {
        const QString root = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
        if (root.isEmpty()) {
            m_cacheDirectory.emplace(std::nullopt);
        } else {
            const QString directory = root + QStringLiteral("/com.pitchlark.tidewell/api");
            if (!QDir().mkpath(directory))
                qCDebug(lcCache) << "cannot create" << directory;
            m_cacheDirectory.emplace(directory);
        }
    }
    return *m_cacheDirectory;
}

std::optional<QString> APIService::cacheURL(const QString &path) const
{
    const auto &directory = cacheDirectory();
    if (!directory)
        return std::nullopt;
    const QString fileName = path.split(u'/', Qt::SkipEmptyParts).join(u'_') + QStringLiteral(".json");
    return *directory + u'/' + fileName;
}

std::optional<DecodeError> APIService::implausible(const QString &path, qsizetype count, qsizetype held)
{
    // From the draw on, the tournament has 104 games, 48 teams, 16 stadiums and 12 groups, and none of
    // them goes away: an empty list, or one that lost most of its records (a truncated array that is
    // still valid JSON), is the service failing, never the truth.
    if (count == 0)
        return DecodeError{QStringLiteral("the answer lists nothing")};
    if (count * 2 >= held) {
        m_reportedShrinks.remove(path);
        return std::nullopt;
    }
    if (!m_reportedShrinks.contains(path)) {
        m_reportedShrinks.insert(path);
        qCInfo(lcNetwork).noquote() << path << "listed" << count << "records where" << held
                                    << "were held; keeping the last good answer";
    }
    return DecodeError{QStringLiteral("the answer lists %1 records where %2 were held").arg(count).arg(held)};
}

QByteArray APIService::readCache(const QString &path) const
{
    const auto file = cacheURL(path);
    if (!file)
        return {};
    QFile cached(*file);
    if (cached.size() > maximumBodySize || !cached.open(QIODevice::ReadOnly))
        return {};
    return cached.readAll();
}

void APIService::writeCache(const QString &path, const QByteArray &body) const
{
    const auto file = cacheURL(path);
    if (!file)
        return;
    QSaveFile saveFile(*file);
    if (!saveFile.open(QIODevice::WriteOnly) || saveFile.write(body) != body.size() || !saveFile.commit())
        qCDebug(lcCache) << "cannot write" << *file << saveFile.errorString();
}

std::optional<QDateTime> APIService::cacheTimestamp() const
{
    std::optional<QDateTime> newest;
    for (const QString &path : {gamesPath, groupsPath, teamsPath, stadiumsPath}) {
        const auto file = cacheURL(path);
        if (!file)
            continue;
        const QFileInfo info(*file);
        if (!info.exists())
            continue;
        const QDateTime modified = info.lastModified();
        if (modified.isValid() && (!newest || modified > *newest))
            newest = modified;
    }
    return newest;
}

MatchStatus APIService::status(const APIGame &game)
{
    if (game.finished.toUpper() == QLatin1StringView("TRUE"))
        return MatchStatus::finished;
    const QString elapsed = trimmedOfSpacesAndTabs(game.timeElapsed.toLower());
    for (const char *word : {"ft", "fulltime", "full-time", "finished"}) {
        if (elapsed == QLatin1StringView(word))
            return MatchStatus::finished;
    }
    if (elapsed.contains(QLatin1StringView("half")) || elapsed == QLatin1StringView("ht"))
        return MatchStatus::halfTime;
    for (const char *word : {"", "notstarted", "ns", "scheduled", "0"}) {
        if (elapsed == QLatin1StringView(word))
            return MatchStatus::scheduled;
    }
    return MatchStatus::inPlay;
}
