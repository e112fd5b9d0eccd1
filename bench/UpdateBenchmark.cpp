// Times checking a release's Ed25519 signature, for AppImage-sized files (this is why the engine does it
// off the main thread), and reading appcasts from a few items to a long release history.

#include "Appcast.h"
#include "UpdateSignature.h"

#include <QElapsedTimer>
#include <QTemporaryFile>

#include <sodium.h>

#include <algorithm>
#include <cstdio>

namespace {

template<typename Work>
double medianMilliseconds(int runs, Work work)
{
    QList<qint64> nanoseconds;
    for (int run = 0; run < runs; ++run) {
        QElapsedTimer timer;
        timer.start();
        work();
        nanoseconds << timer.nsecsElapsed();
    }
    std::nth_element(nanoseconds.begin(), nanoseconds.begin() + runs / 2, nanoseconds.end());
    return double(nanoseconds[runs / 2]) / 1e6;
}

QByteArray appcastWith(int items)
{
    QByteArray xml =
        "<rss version=\"2.0\" xmlns:sparkle=\"http://www.andymatuschak.org/xml-namespaces/sparkle\">"
        "<channel><title>Pitchlark</title>";
    for (int i = 0; i < items; ++i) {
        const QByteArray version = "1." + QByteArray::number(i);
        xml += "<item><title>Pitchlark " + version +
               "</title><description><![CDATA[<ul><li>Fixes</li></ul>]]>"
               "</description><enclosure url=\"https://updates.example.org/Pitchlark-" +
               version + ".AppImage\" sparkle:version=\"" + version + "\" sparkle:shortVersionString=\"" +
               version + "\" length=\"98765432\" type=\"application/octet-stream\" sparkle:edSignature=\"" +
               QByteArray(88, 'A') + "\"/></item>";
    }
    return xml + "</channel></rss>";
}

} // namespace

int main()
{
    if (sodium_init() < 0)
        return 1;
    unsigned char publicKey[crypto_sign_PUBLICKEYBYTES];
    unsigned char secretKey[crypto_sign_SECRETKEYBYTES];
    crypto_sign_keypair(publicKey, secretKey);
    const QByteArrayView key(publicKey, crypto_sign_PUBLICKEYBYTES);

    std::printf("signature check of a release file (median of 5)\n");
    for (qint64 mebibytes : {1, 32, 128}) {
        QByteArray release(mebibytes * 1024 * 1024, Qt::Uninitialized);
        randombytes_buf(release.data(), size_t(release.size()));
        QByteArray signature(crypto_sign_BYTES, Qt::Uninitialized);
        crypto_sign_detached(reinterpret_cast<unsigned char *>(signature.data()), nullptr,
                             reinterpret_cast<const unsigned char *>(release.constData()),
                             quint64(release.size()), secretKey);
        const QByteArray base64 = signature.toBase64();
        QTemporaryFile file;
        if (!file.open() || file.write(release) != release.size() || !file.flush())
            return 1;
        bool valid = true;
        const double ms = medianMilliseconds(
            5, [&] { valid = valid && UpdateSignature::isValidForFile(file.fileName(), base64, key); });
        if (!valid)
            return 1;
        std::printf("  %4lld MiB  %8.1f ms  %7.0f MiB/s\n", static_cast<long long>(mebibytes), ms,
                    double(mebibytes) / (ms / 1000.0));
    }

    std::printf("reading an appcast (median of 21)\n");
    for (int items : {3, 100, 2000}) {
        const QByteArray xml = appcastWith(items);
        qsizetype found = 0;
        const double ms = medianMilliseconds(21, [&] { found = Appcast::parse(xml)->items.size(); });
        if (found != items)
            return 1;
        std::printf("  %5d items  %8lld KiB  %8.3f ms\n", items, static_cast<long long>(xml.size() / 1024),
                    ms);
    }
    return 0;
}
