#include "BoundedTransfer.h"

#include <QNetworkReply>

#include <QCoro/QCoroNetworkReply>

#include <memory>

namespace {

struct ReplyDeleter {
    void operator()(QNetworkReply *reply) const { reply->deleteLater(); }
};

constexpr qint64 chunkSize = 256 * 1024;

} // namespace

QCoro::Task<std::optional<TransferFailure>> transferBounded(QNetworkAccessManager &network,
                                                            const QNetworkRequest &request, QIODevice &sink,
                                                            qint64 limit,
                                                            std::function<void(qint64)> chunkWritten)
{
    std::unique_ptr<QNetworkReply, ReplyDeleter> reply(network.get(request));
    std::optional<TransferFailure> failure;
    qint64 received = 0;

    // Aborting re-enters through finished(); queueing it keeps the abort out of the signal handlers.
    const auto stop = [&](TransferFailure::Kind kind, QString detail) {
        if (failure)
            return;
        failure = TransferFailure{kind, std::move(detail)};
        QMetaObject::invokeMethod(reply.get(), &QNetworkReply::abort, Qt::QueuedConnection);
    };
    const auto drain = [&] {
        while (!failure && reply->bytesAvailable() > 0) {
            const QByteArray chunk = reply->read(std::min(reply->bytesAvailable(), chunkSize));
            if (received + chunk.size() > limit)
                return stop(TransferFailure::Kind::tooLarge, QStringLiteral("more than %1 bytes").arg(limit));
            if (sink.write(chunk) != chunk.size())
                return stop(TransferFailure::Kind::notSaved, sink.errorString());
            received += chunk.size();
            if (chunkWritten)
                chunkWritten(chunk.size());
        }
    };
    // The connections end with this context, before the frame's locals they capture.
    QObject context;
    QObject::connect(reply.get(), &QNetworkReply::metaDataChanged, &context, [&] {
        const QVariant announced = reply->header(QNetworkRequest::ContentLengthHeader);
        if (announced.isValid() && announced.toLongLong() > limit)
            stop(TransferFailure::Kind::tooLarge,
                 QStringLiteral("announced %1 bytes").arg(announced.toLongLong()));
    });
    QObject::connect(reply.get(), &QNetworkReply::readyRead, &context, drain);

    if (!reply->isFinished())
        co_await reply.get();
    drain();
    if (failure)
        co_return failure;
    if (reply->error() != QNetworkReply::NoError)
        co_return TransferFailure{TransferFailure::Kind::network, reply->errorString()};
    co_return std::nullopt;
}
