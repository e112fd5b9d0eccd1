#pragma once

#include <QByteArrayView>
#include <QString>

// Ed25519 signatures as appcasts carry them: base64 text of the 64-byte detached signature, checked
// against a 32-byte public key.
namespace UpdateSignature {

inline constexpr qsizetype publicKeySize = 32;

bool isValid(QByteArrayView message, QByteArrayView base64Signature, QByteArrayView publicKey);
// The same over the bytes of a file, which is mapped rather than read so large releases cost no copy.
bool isValidForFile(const QString &path, QByteArrayView base64Signature, QByteArrayView publicKey);

} // namespace UpdateSignature
