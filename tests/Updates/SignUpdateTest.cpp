#include "Appcast.h"
#include "UpdateSignature.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

namespace {

struct Run {
    int exitCode;
    QByteArray output;
};

Run signUpdate(const QStringList &arguments)
{
    QProcess process;
    process.start(QStringLiteral(PITCHLARK_SIGN_UPDATE), arguments);
    if (!process.waitForFinished(10'000))
        return {-1, {}};
    return {process.exitCode(), process.readAllStandardOutput()};
}

void writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

} // namespace

// The release tool, run as a release manager would: its keys and items must be what the engine accepts.
class SignUpdateTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void signedItemIsReadByTheEngine();
    void refusals_data();
    void refusals();

private:
    QTemporaryDir m_folder;
    QString m_key;
    QString m_release;
    QByteArray m_publicKey;
};

void SignUpdateTest::initTestCase()
{
    m_key = m_folder.filePath(QStringLiteral("signing.key"));
    m_release = m_folder.filePath(QStringLiteral("Pitchlark-2.1.AppImage"));
    writeFile(m_release, QByteArray(70'000, 'p') + "release");

    const Run generated = signUpdate({"generate-keys", m_key});
    QCOMPARE(generated.exitCode, 0);
    m_publicKey = QByteArray::fromBase64(generated.output.trimmed());
    QCOMPARE(m_publicKey.size(), UpdateSignature::publicKeySize);
    QCOMPARE(QFile::permissions(m_key) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
    QCOMPARE(signUpdate({"public-key", m_key}).output, generated.output);
}

void SignUpdateTest::signedItemIsReadByTheEngine()
{
    const Run signedItem = signUpdate(
        {"sign", m_key, m_release, "2.1", "2.1 \"Final\"", "https://example.org/Pitchlark-2.1.AppImage"});
    QCOMPARE(signedItem.exitCode, 0);

    const auto appcast =
        Appcast::parse("<rss version=\"2.0\"><channel>" + signedItem.output + "</channel></rss>");
    QVERIFY(appcast.ok());
    QCOMPARE(appcast->items.size(), 1);
    const AppcastItem &item = appcast->items.first();
    QCOMPARE(item.versionString, "2.1");
    QCOMPARE(item.displayVersionString, "2.1 \"Final\"");
    QCOMPARE(item.url, QUrl("https://example.org/Pitchlark-2.1.AppImage"));
    QCOMPARE(item.length, QFileInfo(m_release).size());
    QVERIFY(UpdateSignature::isValidForFile(m_release, item.edSignature, m_publicKey));
}

void SignUpdateTest::refusals_data()
{
    QTest::addColumn<QStringList>("arguments");
    const QString damaged = m_folder.filePath(QStringLiteral("damaged.key"));
    writeFile(damaged, "bm90IGEga2V5");
    const QString url = QStringLiteral("https://example.org/P.AppImage");

    QTest::newRow("replacing an existing key") << QStringList{"generate-keys", m_key};
    QTest::newRow("a version that is not numbers")
        << QStringList{"sign", m_key, m_release, "2.1-rc", "2.1", url};
    QTest::newRow("plain http") << QStringList{"sign", m_key, m_release,
                                               "2.1",  "2.1", "http://example.org/P"};
    QTest::newRow("a damaged key") << QStringList{"sign", damaged, m_release, "2.1", "2.1", url};
}

void SignUpdateTest::refusals()
{
    QFETCH(QStringList, arguments);
    const QByteArray keyBefore = [&] {
        QFile file(m_key);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }();
    const Run run = signUpdate(arguments);
    QVERIFY(run.exitCode > 0);
    QCOMPARE(run.output, QByteArray());
    QFile key(m_key);
    QVERIFY(key.open(QIODevice::ReadOnly));
    QCOMPARE(key.readAll(), keyBefore);
}

QTEST_GUILESS_MAIN(SignUpdateTest)
#include "SignUpdateTest.moc"
