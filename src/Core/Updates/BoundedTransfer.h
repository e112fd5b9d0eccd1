#pragma once

#include <QIODevice>
#include <QNetworkAccessManager>
#include <QNetworkRequest>
#include <QString>

#include <QCoro/QCoroTask>

#include <functional>
#include <optional>

struct TransferFailure {
    enum class Kind {
        // The connection failed, timed out, or the server answered with an error.
        network,
        // The server announced or sent more than the limit.
        tooLarge,
        // The sink refused the bytes, for instance on a full disk.
        notSaved,
    };
    Kind kind;
    QString detail;
};

// Streams the body of request into sink, never taking more than limit bytes; chunkWritten hears the size
// of every piece once it is in the sink. Nothing when the whole body arrived.
QCoro::Task<std::optional<TransferFailure>> transferBounded(QNetworkAccessManager &network,
                                                            const QNetworkRequest &request, QIODevice &sink,
                                                            qint64 limit,
                                                            std::function<void(qint64)> chunkWritten = {});
