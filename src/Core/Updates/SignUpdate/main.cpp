// pitchlark-sign-update: the release side of software updates. Makes the Ed25519 key pair, and signs a
// release file into the appcast item that AppcastUpdater reads. scripts/sign-update.sh wraps it.

#include "UpdateSignature.h"
#include "UpdateVersion.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QLocale>
#include <QSaveFile>
#include <QUrl>
#include <QXmlStreamWriter>

#include <sodium.h>

#include <cstdio>
#include <optional>

namespace {

const char usage[] =
    "usage:\n"
    "  pitchlark-sign-update generate-keys KEY_FILE\n"
    "  pitchlark-sign-update public-key KEY_FILE\n"
    "  pitchlark-sign-update sign KEY_FILE RELEASE_FILE VERSION DISPLAY_VERSION DOWNLOAD_URL\n";

int fail(const QString &message)
{
    std::fprintf(stderr, "pitchlark-sign-update: %s\n", qPrintable(message));
    return 1;
}

// The libsodium secret key: the 32-byte seed followed by the public key. Wiped when it goes.
class SecretKey {
public:
    SecretKey() : m_bytes(crypto_sign_SECRETKEYBYTES, Qt::Uninitialized) {}
    ~SecretKey() { sodium_memzero(m_bytes.data(), size_t(m_bytes.size())); }
    SecretKey(const SecretKey &) = delete;
    SecretKey &operator=(const SecretKey &) = delete;

    static std::optional<QString> read(const QString &path, SecretKey &key)
    {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            return file.errorString();
        const auto decoded =
            QByteArray::fromBase64Encoding(file.readAll().trimmed(), QByteArray::AbortOnBase64DecodingErrors);
        if (!decoded || decoded.decoded.size() != crypto_sign_SECRETKEYBYTES)
            return QStringLiteral("%1 is not a key made by generate-keys").arg(path);
        key.m_bytes = decoded.decoded;
        return std::nullopt;
    }

    unsigned char *data() { return reinterpret_cast<unsigned char *>(m_bytes.data()); }
    const unsigned char *data() const { return reinterpret_cast<const unsigned char *>(m_bytes.constData()); }
    QByteArray base64() const { return m_bytes.toBase64(); }
    QByteArray publicKey() const { return m_bytes.right(crypto_sign_PUBLICKEYBYTES); }

private:
    QByteArray m_bytes;
};

int generateKeys(const QString &path)
{
    if (QFile::exists(path))
        return fail(
            QStringLiteral("%1 exists; a new key would orphan every release signed with it").arg(path));
    QByteArray publicKey(crypto_sign_PUBLICKEYBYTES, Qt::Uninitialized);
    SecretKey secretKey;
    crypto_sign_keypair(reinterpret_cast<unsigned char *>(publicKey.data()), secretKey.data());

    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || !file.setPermissions(QFile::ReadOwner | QFile::WriteOwner) ||
        file.write(secretKey.base64() + '\n') < 0 || !file.commit())
        return fail(file.errorString());
    std::printf("%s\n", publicKey.toBase64().constData());
    std::fprintf(stderr,
                 "Private key written to %s. Keep it out of the repository and back it up.\n"
                 "Build releases with -DPITCHLARK_UPDATE_PUBLIC_KEY=<the line above>.\n",
                 qPrintable(path));
    return 0;
}

int printPublicKey(const QString &path)
{
    SecretKey secretKey;
    if (const auto error = SecretKey::read(path, secretKey))
        return fail(*error);
    std::printf("%s\n", secretKey.publicKey().toBase64().constData());
    return 0;
}

int sign(const QStringList &arguments)
{
    const QString &keyPath = arguments[0];
    const QString &releasePath = arguments[1];
    const QString &version = arguments[2];
    const QString &displayVersion = arguments[3];
    const QUrl url(arguments[4], QUrl::StrictMode);
    if (!UpdateVersion::parse(version))
        return fail(QStringLiteral("VERSION must be dot-separated numbers, such as 1.4.0"));
    if (!url.isValid() || url.scheme() != u"https")
        return fail(QStringLiteral("DOWNLOAD_URL must be an https address"));

    SecretKey secretKey;
    if (const auto error = SecretKey::read(keyPath, secretKey))
        return fail(*error);
    QFile release(releasePath);
    if (!release.open(QIODevice::ReadOnly))
        return fail(QStringLiteral("%1: %2").arg(releasePath, release.errorString()));
    const qint64 length = release.size();
    if (length == 0)
        return fail(QStringLiteral("%1 is empty").arg(releasePath));
    const uchar *bytes = release.map(0, length);
    if (!bytes)
        return fail(QStringLiteral("%1: %2").arg(releasePath, release.errorString()));

    QByteArray signature(crypto_sign_BYTES, Qt::Uninitialized);
    crypto_sign_detached(reinterpret_cast<unsigned char *>(signature.data()), nullptr, bytes, quint64(length),
                         secretKey.data());
    const QByteArray edSignature = signature.toBase64();
    if (!UpdateSignature::isValidForFile(releasePath, edSignature, secretKey.publicKey()))
        return fail(QStringLiteral("the signature does not verify; the key file is damaged"));

    const QString sparkle = QStringLiteral("http://www.andymatuschak.org/xml-namespaces/sparkle");
    QString item;
    QXmlStreamWriter writer(&item);
    writer.setAutoFormatting(true);
    writer.writeStartElement(QStringLiteral("item"));
    writer.writeNamespace(sparkle, QStringLiteral("sparkle"));
    writer.writeTextElement(QStringLiteral("title"), QStringLiteral("Pitchlark ") + displayVersion);
    writer.writeTextElement(QStringLiteral("pubDate"),
                            QLocale::c().toString(QDateTime::currentDateTimeUtc(),
                                                  QStringLiteral("ddd, dd MMM yyyy HH:mm:ss +0000")));
    writer.writeEmptyElement(QStringLiteral("enclosure"));
    writer.writeAttribute(QStringLiteral("url"), QString::fromUtf8(url.toEncoded()));
    writer.writeAttribute(sparkle, QStringLiteral("version"), version);
    writer.writeAttribute(sparkle, QStringLiteral("shortVersionString"), displayVersion);
    writer.writeAttribute(QStringLiteral("length"), QString::number(length));
    writer.writeAttribute(QStringLiteral("type"), QStringLiteral("application/octet-stream"));
    writer.writeAttribute(sparkle, QStringLiteral("edSignature"), QString::fromLatin1(edSignature));
    writer.writeEndElement();
    std::printf("%s\n", qPrintable(item.trimmed()));
    return 0;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    if (sodium_init() < 0)
        return fail(QStringLiteral("libsodium cannot start"));
    const QStringList arguments = application.arguments().mid(1);
    const QString command = arguments.value(0);
    if (command == u"generate-keys" && arguments.size() == 2)
        return generateKeys(arguments[1]);
    if (command == u"public-key" && arguments.size() == 2)
        return printPublicKey(arguments[1]);
    if (command == u"sign" && arguments.size() == 6)
        return sign(arguments.mid(1));
    std::fputs(usage, stderr);
    return 2;
}
