#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <sodium.h>

// An Ed25519 key pair made for one test, signing the way the release script does.
class TestSigningKey {
public:
    TestSigningKey()
    {
        if (sodium_init() < 0)
            qFatal("libsodium cannot start");
        m_publicKey.resize(crypto_sign_PUBLICKEYBYTES);
        m_secretKey.resize(crypto_sign_SECRETKEYBYTES);
        crypto_sign_keypair(bytes(m_publicKey), bytes(m_secretKey));
    }

    QByteArray publicKey() const { return m_publicKey; }

    // Base64 of the detached signature, as sparkle:edSignature holds it.
    QByteArray sign(QByteArrayView message) const
    {
        QByteArray signature(crypto_sign_BYTES, Qt::Uninitialized);
        crypto_sign_detached(bytes(signature), nullptr,
                             reinterpret_cast<const unsigned char *>(message.data()), quint64(message.size()),
                             reinterpret_cast<const unsigned char *>(m_secretKey.data()));
        return signature.toBase64();
    }

private:
    static unsigned char *bytes(QByteArray &array) { return reinterpret_cast<unsigned char *>(array.data()); }

    QByteArray m_publicKey;
    QByteArray m_secretKey;
};
