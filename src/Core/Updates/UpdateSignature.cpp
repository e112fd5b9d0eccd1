#include "UpdateSignature.h"

#include <QByteArray>
#include <QFile>

#include <sodium.h>

namespace UpdateSignature {

bool isValid(QByteArrayView message, QByteArrayView base64Signature, QByteArrayView publicKey)
{
    if (sodium_init() < 0 || publicKey.size() != crypto_sign_PUBLICKEYBYTES)
        return false;
    const auto decoded = QByteArray::fromBase64Encoding(base64Signature.toByteArray(),
                                                        QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded || decoded.decoded.size() != crypto_sign_BYTES)
        return false;
    return crypto_sign_verify_detached(reinterpret_cast<const unsigned char *>(decoded.decoded.constData()),
                                       reinterpret_cast<const unsigned char *>(message.data()),
                                       quint64(message.size()),
                                       reinterpret_cast<const unsigned char *>(publicKey.data())) == 0;
}

bool isValidForFile(const QString &path, QByteArrayView base64Signature, QByteArrayView publicKey)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    if (file.size() == 0)
        return isValid({}, base64Signature, publicKey);
    const uchar *bytes = file.map(0, file.size());
    if (!bytes)
        return false;
    return isValid(QByteArrayView(bytes, file.size()), base64Signature, publicKey);
}

} // namespace UpdateSignature
