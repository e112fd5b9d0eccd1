#include "AppcastUpdater.h"
#include "TestSigningKey.h"
#include "UpdateController.h"
#include "UpdateServer.h"

#include <QDir>
#include <QRegularExpression>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <limits>

using namespace std::chrono_literals;

namespace {

const QFile::Permissions appImageMode = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner |
                                        QFile::ReadGroup | QFile::ExeGroup | QFile::ReadUser |
                                        QFile::WriteUser | QFile::ExeUser;
const QByteArray installedProgram = "the installed program";

// Several chunks' worth, so that progress is reported more than once.
QByteArray releaseBytes()
{
    QByteArray bytes(600 * 1024, Qt::Uninitialized);
    for (qsizetype i = 0; i < bytes.size(); ++i)
        bytes[i] = char((i * 7) % 251);
    return bytes;
}

QByteArray appcast(const QByteArray &version, const QUrl &url, qint64 length, const QByteArray &signature)
{
    QByteArray enclosure = "<enclosure url=\"" + url.toEncoded() + "\" sparkle:version=\"" + version +
                           "\" sparkle:shortVersionString=\"" + version + "\" length=\"" +
                           QByteArray::number(length) + "\" type=\"application/octet-stream\"";
    if (!signature.isEmpty())
        enclosure += " sparkle:edSignature=\"" + signature + "\"";
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?><rss version=\"2.0\" "
           "xmlns:sparkle=\"http://www.andymatuschak.org/xml-namespaces/sparkle\"><channel><title>Pitchlark</"
           "title>"
           "<item><title>Pitchlark " +
           version + "</title>" + enclosure + "/></item></channel></rss>";
}

// A program installed as an AppImage, in a folder of its own. The file stands in for a real AppImage:
// the engine never looks inside it, it only replaces it and starts it.
struct Installation {
    QTemporaryDir folder;
    QTemporaryDir configFolder;
    QString appImagePath = folder.filePath(QStringLiteral("Pitchlark.AppImage"));
    QString settingsPath = configFolder.filePath(QStringLiteral("pitchlark.conf"));
    QStringList relaunched;

    Installation()
    {
        QFile file(appImagePath);
        if (!file.open(QIODevice::WriteOnly) || file.write(installedProgram) != installedProgram.size())
            qFatal("cannot create the stand-in AppImage");
        file.close();
        file.setPermissions(appImageMode);
        setAutomaticChecks(false);
    }

    void setAutomaticChecks(std::optional<bool> enabled)
    {
        QSettings settings(settingsPath, QSettings::IniFormat);
        if (enabled)
            settings.setValue(QStringLiteral("AutomaticUpdateChecks"), *enabled);
        else
            settings.remove(QStringLiteral("AutomaticUpdateChecks"));
    }

    QByteArray appImageBytes() const
    {
        QFile file(appImagePath);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    // Nothing but the AppImage: a failed or finished download leaves no temporary file behind.
    QStringList folderEntries() const { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden); }

    AppcastUpdater::Options options(const UpdateServer &server, const TestSigningKey &key)
    {
        AppcastUpdater::Options options;
        options.appcastURL = server.appcastURL();
        options.publicKey = key.publicKey();
        options.currentVersion = QStringLiteral("1.0");
        options.appImagePath = appImagePath;
        options.settingsPath = settingsPath;
        options.firstBackgroundCheckDelay = 0ms;
        options.transferTimeout = 5s;
        // Recorded, not performed: starting the stand-in would fail and quitting would end the test.
        options.relaunch = [this](const QString &path) { relaunched << path; };
        return options;
    }
};

// Long enough that no flow returns to idle while a test looks at it.
constexpr UpdateDisplayTimes steadyDisplay{.upToDate = 1h, .error = 1h};

} // namespace

class AppcastUpdaterTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(m_server.isListening()); }
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".*"))); }

    void userCheck_data();
    void userCheck();
    void goodUpdatesReplaceTheAppImage();
    void start_data();
    void start();

private:
    // Release 2.0, announced with its true length and signed with the installation's key.
    void serveSignedRelease(const QByteArray &release)
    {
        m_server.setAppcast(appcast("2.0", m_server.releaseURL(), release.size(), m_key.sign(release)));
        m_server.setRelease(release);
    }

    UpdateServer m_server;
    TestSigningKey m_key;
    QByteArray m_release = releaseBytes();
};

// A check the user starts, and the download of what it offers: none of these ends with anything installed.
void AppcastUpdaterTest::userCheck_data()
{
    QTest::addColumn<QByteArray>("feed");
    QTest::addColumn<int>("feedStatus");
    QTest::addColumn<QByteArray>("served");
    QTest::addColumn<int>("servedStatus");
    QTest::addColumn<bool>("nothingFetched");
    QTest::addColumn<QString>("message"); // the error the flow ends in; empty: up to date

    const auto checkRow = [this](const char *name, const QByteArray &feed, int status,
                                 const QString &message) {
        QTest::newRow(name) << feed << status << m_release << 200 << true << message;
    };
    // An announced length over the cap is refused before anything is asked for.
    const auto downloadRow = [this](const char *name, qint64 announced, const QByteArray &served,
                                    const QByteArray &signature, int status, const QString &message) {
        QTest::newRow(name) << appcast("2.0", m_server.releaseURL(), announced, signature) << 200 << served
                            << status << (announced > AppcastUpdater::maximumUpdateSize) << message;
    };
    const TestSigningKey stranger;
    QByteArray tampered = m_release;
    tampered[tampered.size() / 2] = char(tampered[tampered.size() / 2] ^ 1);
    const QByteArray signature = m_key.sign(m_release);
    const qint64 size = m_release.size();
    const QString unreadable = QStringLiteral("The update feed couldn't be read.");
    const QString badSignature = QStringLiteral("The update's signature isn't valid.");
    const QString tooLarge = QStringLiteral("The update is too large.");

    // clang-format off
    checkRow("the installed release", appcast("1.0.0", m_server.releaseURL(), size, signature), 200, {});
    checkRow("a broken appcast", "<rss><channel><item><enclosure", 200, unreadable);
    checkRow("an appcast too large to be one", QByteArray(AppcastUpdater::maximumAppcastSize + 1, ' '), 200, unreadable);
    checkRow("a server error", "oops", 500, QStringLiteral("Couldn't reach the update server. Check your connection and try again."));
    downloadRow("one byte changed in transit", size, tampered, signature, 200, badSignature);
    downloadRow("signed with another key", size, m_release, stranger.sign(m_release), 200, badSignature);
    downloadRow("signature not base64", size, m_release, "not*base64!", 200, badSignature);
    downloadRow("signature cut short", size, m_release, signature.left(40), 200, badSignature);
    downloadRow("unsigned", size, m_release, {}, 200, QStringLiteral("The update isn't signed."));
    downloadRow("truncated", size, m_release.left(size / 2), signature, 200, QStringLiteral("The update download was incomplete."));
    downloadRow("longer than announced", size, m_release + 'x', signature, 200, QStringLiteral("The update is larger than announced."));
    downloadRow("announced above the cap", AppcastUpdater::maximumUpdateSize + 1, m_release, signature, 200, tooLarge);
    downloadRow("announced near INT64_MAX", std::numeric_limits<qint64>::max(), m_release, signature, 200, tooLarge);
    downloadRow("missing on the server", size, "not here", signature, 404, QStringLiteral("The update couldn't be downloaded. Check your connection and try again."));
    // clang-format on
}

void AppcastUpdaterTest::userCheck()
{
    QFETCH(QByteArray, feed);
    QFETCH(int, feedStatus);
    QFETCH(QByteArray, served);
    QFETCH(int, servedStatus);
    QFETCH(QString, message);
    m_server.setAppcast(feed, QHttpServerResponse::StatusCode(feedStatus));
    m_server.setRelease(served, QHttpServerResponse::StatusCode(servedStatus));
    const int requestsBefore = m_server.releaseRequests();
    Installation installation;
    UpdateController controller(std::make_unique<AppcastUpdater>(installation.options(m_server, m_key)),
                                steadyDisplay);

    QVERIFY(controller.canCheckForUpdates());
    controller.checkForUpdates();
    QCOMPARE(controller.phase(), UpdatePhase::checking());
    QVERIFY2(!controller.canCheckForUpdates(), "one check at a time");
    QTRY_VERIFY(controller.phase() != UpdatePhase::checking());
    QVERIFY(controller.isUserInitiated());
    QVERIFY(QSettings(installation.settingsPath, QSettings::IniFormat).contains("LastUpdateCheckTime"));
    if (controller.phase().kind() == UpdatePhase::Kind::available) {
        QVERIFY(controller.canCheckForUpdates());
        controller.primaryAction();
        QTRY_COMPARE(controller.phase().kind(), UpdatePhase::Kind::error);
        controller.primaryAction();
    }

    QCOMPARE(controller.phase(), message.isEmpty() ? UpdatePhase::upToDate() : UpdatePhase::error(message));
    QCOMPARE(installation.appImageBytes(), installedProgram);
    QCOMPARE(QFile::permissions(installation.appImagePath), appImageMode);
    QCOMPARE(installation.folderEntries(), QStringList{"Pitchlark.AppImage"});
    QCOMPARE(installation.relaunched, QStringList{});
    QFETCH(bool, nothingFetched);
    if (nothingFetched)
        QCOMPARE(m_server.releaseRequests(), requestsBefore);
}

// One installation through both ways a good update goes in: on quit after "Later", and by relaunching.
void AppcastUpdaterTest::goodUpdatesReplaceTheAppImage()
{
    serveSignedRelease(m_release);
    Installation installation;
    auto owned = std::make_unique<AppcastUpdater>(installation.options(m_server, m_key));
    AppcastUpdater *engine = owned.get();
    UpdateController controller(std::move(owned), steadyDisplay);
    const int releaseRequests = m_server.releaseRequests();
    QList<double> progress;
    connect(&controller, &UpdateController::phaseChanged, this, [&] {
        if (controller.phase().kind() == UpdatePhase::Kind::downloading)
            progress << controller.phase().progress();
    });

    controller.checkForUpdates();
    QTRY_COMPARE(controller.phase().kind(), UpdatePhase::Kind::available);
    controller.primaryAction();
    QTRY_COMPARE(controller.phase(), UpdatePhase::readyToRelaunch());
    QVERIFY2(progress.size() > 2, "the download reports its progress chunk by chunk");
    QCOMPARE(progress.first(), UpdatePhase::indeterminate);
    QVERIFY(std::is_sorted(progress.begin() + 1, progress.end() - 1));
    QCOMPARE(progress.at(progress.size() - 2), 1.0);
    QCOMPARE(progress.last(), UpdatePhase::indeterminate); // checking the signature
    QCOMPARE(installation.appImageBytes(), installedProgram);
    QCOMPARE(installation.relaunched, QStringList{});

    // "Later", then asked again: the release that is already here is offered without a second download.
    controller.dismiss();
    QCOMPARE(controller.phase(), UpdatePhase::idle());
    QVERIFY(controller.canCheckForUpdates());
    controller.checkForUpdates();
    QTRY_COMPARE(controller.phase().kind(), UpdatePhase::Kind::available);
    controller.primaryAction();
    QCOMPARE(controller.phase(), UpdatePhase::readyToRelaunch());
    QCOMPARE(m_server.releaseRequests(), releaseRequests + 1);
    controller.dismiss();
    engine->installOnQuit();
    QCOMPARE(installation.appImageBytes(), m_release);
    QCOMPARE(QFile::permissions(installation.appImagePath), appImageMode);
    QCOMPARE(installation.folderEntries(), QStringList{"Pitchlark.AppImage"});
    QCOMPARE(installation.relaunched, QStringList{});

    // A different release is downloaded afresh and relaunched into.
    const QByteArray next = m_release + "next";
    serveSignedRelease(next);
    progress.clear();
    controller.checkForUpdates();
    QTRY_COMPARE(controller.phase().kind(), UpdatePhase::Kind::available);
    controller.primaryAction();
    QTRY_COMPARE(controller.phase(), UpdatePhase::readyToRelaunch());
    QVERIFY2(progress.size() > 2 && progress.at(1) < 1.0, "a new download counts from zero");
    controller.primaryAction();
    QCOMPARE(controller.phase(), UpdatePhase::installing());
    QCOMPARE(installation.relaunched, QStringList{installation.appImagePath});
    QCOMPARE(installation.appImageBytes(), next);
    QCOMPARE(QFile::permissions(installation.appImagePath), appImageMode);
    QCOMPARE(installation.folderEntries(), QStringList{"Pitchlark.AppImage"});
    controller.primaryAction();
    QCOMPARE(installation.relaunched.size(), 1);
}

// The engine as the program starts: it refuses to run without what updates need, and otherwise checks
// in the background when the stored settings say so.
void AppcastUpdaterTest::start_data()
{
    QTest::addColumn<std::optional<bool>>("automaticChecks");
    QTest::addColumn<std::optional<int>>("lastCheckHoursAgo");
    QTest::addColumn<QString>("field"); // the option set to value
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("reason"); // why the engine refused to start; empty: it started
    QTest::addColumn<bool>("checks");

    const auto row = [](const char *name, std::optional<bool> automaticChecks, std::optional<int> hoursAgo,
                        bool checks) {
        QTest::newRow(name) << automaticChecks << hoursAgo << QString() << QString() << QString() << checks;
    };
    // Automatic checks are on, yet a refused engine asks the server nothing.
    const auto refused = [](const char *name, const char *field, const char *value, const char *reason) {
        QTest::newRow(name) << std::optional<bool>(true) << std::optional<int>() << QString::fromLatin1(field)
                            << QString::fromLatin1(value) << QString::fromLatin1(reason) << false;
    };
    // A feed address the engine accepts; with automatic checks off it asks nothing yet.
    const auto accepted = [](const char *name, const char *url) {
        QTest::newRow(name) << std::optional<bool>(false) << std::optional<int>()
                            << QStringLiteral("appcastURL") << QString::fromLatin1(url) << QString() << false;
    };
    const char *insecure = "The update feed must be served over HTTPS.";
    // clang-format off
    row("first run: asks, then checks", {}, {}, true);
    row("turned off", false, {}, false);
    row("checked an hour ago", true, 1, false);
    row("checked yesterday", true, 25, true);
    refused("not an AppImage", "appImagePath", "", "Updates are managed by your package manager.");
    refused("no public key", "publicKey", "", "This build has no key to check updates with.");
    refused("no usable version", "currentVersion", "1.0-dev", "This build has no version to compare updates with.");
    refused("plain http elsewhere", "appcastURL", "http://updates.example.org/appcast.xml", insecure);
    refused("http to a name that starts with a loopback address", "appcastURL", "http://127.0.0.1.example.org/a", insecure);
    refused("a file", "appcastURL", "file:///tmp/appcast.xml", insecure);
    refused("no host", "appcastURL", "https:///appcast.xml", insecure);
    accepted("https", "https://updates.example.org/appcast.xml");
    accepted("http to localhost", "http://localhost/appcast.xml");
    // clang-format on
}

void AppcastUpdaterTest::start()
{
    QFETCH(std::optional<bool>, automaticChecks);
    QFETCH(std::optional<int>, lastCheckHoursAgo);
    QFETCH(QString, field);
    QFETCH(QString, value);
    QFETCH(QString, reason);
    QFETCH(bool, checks);
    serveSignedRelease(m_release);
    Installation installation;
    installation.setAutomaticChecks(automaticChecks);
    if (lastCheckHoursAgo) {
        QSettings(installation.settingsPath, QSettings::IniFormat)
            .setValue("LastUpdateCheckTime", QDateTime::currentDateTimeUtc()
                                                 .addSecs(-3600 * *lastCheckHoursAgo)
                                                 .toString(Qt::ISODateWithMs));
    }
    AppcastUpdater::Options options = installation.options(m_server, m_key);
    if (field == u"appImagePath")
        options.appImagePath = value;
    else if (field == u"publicKey")
        options.publicKey = value.toLatin1();
    else if (field == u"currentVersion")
        options.currentVersion = value;
    else if (field == u"appcastURL")
        options.appcastURL = QUrl(value);
    const int requests = m_server.appcastRequests();
    // A package manager updating the program is no failure, and is not logged as one.
    if (options.appImagePath.isEmpty())
        QTest::ignoreMessage(QtInfoMsg, qPrintable(reason));
    else if (!reason.isEmpty())
        QTest::ignoreMessage(QtWarningMsg, qPrintable(QStringLiteral("Sparkle failed to start: ") + reason));

    UpdateController controller(std::make_unique<AppcastUpdater>(options), steadyDisplay);

    QCOMPARE(controller.unavailableReason(), reason);
    QCOMPARE(controller.canCheckForUpdates(), reason.isEmpty());
    if (!reason.isEmpty())
        controller.checkForUpdates();
    if (checks) {
        QTRY_COMPARE(controller.phase(), UpdatePhase::available(QStringLiteral("2.0")));
        QVERIFY2(!controller.isUserInitiated(), "found by a background check: the toast, not the modal");
        const QSettings settings(installation.settingsPath, QSettings::IniFormat);
        QCOMPARE(settings.value("AutomaticUpdateChecks").toString(), "true");
        const QDateTime lastCheck =
            QDateTime::fromString(settings.value("LastUpdateCheckTime").toString(), Qt::ISODateWithMs);
        QVERIFY(lastCheck.secsTo(QDateTime::currentDateTimeUtc()) < 60);
    } else {
        QTest::qWait(200);
        QCOMPARE(controller.phase(), UpdatePhase::idle());
    }
    QCOMPARE(m_server.appcastRequests(), requests + (checks ? 1 : 0));
}

QTEST_GUILESS_MAIN(AppcastUpdaterTest)
#include "AppcastUpdaterTest.moc"
