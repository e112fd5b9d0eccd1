#include "AppcastUpdater.h"

#include "AppImageReplacement.h"
#include "Appcast.h"
#include "BoundedTransfer.h"
#include "SecureUpdateURL.h"
#include "Support/ConfigLocation.h"
#include "UpdateBuildSettings.h"
#include "UpdateSignature.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFileInfo>
#include <QFuture>
#include <QProcess>
#include <QPromise>
#include <QSettings>
#include <QStorageInfo>
#include <QThreadPool>

#include <QCoro/QCoroFuture>

#include <algorithm>

namespace {

const QString automaticChecksKey = QStringLiteral("AutomaticUpdateChecks");
const QString lastCheckKey = QStringLiteral("LastUpdateCheckTime");

// Hashing a whole release takes a noticeable moment; it runs off the main thread.
QCoro::Task<bool> verifyInBackground(QString path, QByteArray signature, QByteArray publicKey)
{
    auto promise = std::make_shared<QPromise<bool>>();
    QFuture<bool> future = promise->future();
    promise->start();
    QThreadPool::globalInstance()->start([promise, path, signature, publicKey] {
        promise->addResult(UpdateSignature::isValidForFile(path, signature, publicKey));
        promise->finish();
    });
    co_return co_await future;
}

// A stored Bool, whether the store kept its type or wrote it as text.
std::optional<bool> storedBool(const QVariant &value)
{
    if (value.typeId() == QMetaType::Bool)
        return value.toBool();
    if (value.typeId() == QMetaType::QString && (value.toString() == u"true" || value.toString() == u"false"))
        return value.toString() == u"true";
    return std::nullopt;
}

QString downloadFailureText(const TransferFailure &failure)
{
    switch (failure.kind) {
    case TransferFailure::Kind::network:
        return QStringLiteral("The update couldn't be downloaded. Check your connection and try again.");
    case TransferFailure::Kind::tooLarge:
        return QStringLiteral("The update is larger than announced.");
    case TransferFailure::Kind::notSaved:
        return QStringLiteral("The update couldn't be saved: %1").arg(failure.detail);
    }
    Q_UNREACHABLE();
}

} // namespace

AppcastUpdater::Options AppcastUpdater::Options::fromEnvironment()
{
    Options options;
    options.appcastURL = QUrl(qEnvironmentVariableIsSet("PITCHLARK_APPCAST_URL")
                                  ? qEnvironmentVariable("PITCHLARK_APPCAST_URL")
                                  : QString::fromLatin1(buildAppcastURL));
    options.publicKey = QByteArray::fromBase64(buildUpdatePublicKey);
    options.currentVersion = QCoreApplication::applicationVersion();
    options.appImagePath = qEnvironmentVariable("APPIMAGE");
    options.settingsPath = pitchlarkConfigFilePath();
    options.relaunch = [](const QString &appImagePath) {
        QProcess::startDetached(appImagePath, QCoreApplication::arguments().mid(1));
        QCoreApplication::quit();
    };
    return options;
}

AppcastUpdater::AppcastUpdater(Options options, QObject *parent)
    : UpdateEngine(parent), m_options(std::move(options)), m_network(new QNetworkAccessManager(this))
{
    m_backgroundCheck.setSingleShot(true);
    connect(&m_backgroundCheck, &QTimer::timeout, this, [this] {
        if (m_busy)
            scheduleBackgroundCheck(m_options.backgroundCheckInterval);
        else
            check(false);
    });
}

std::optional<QString> AppcastUpdater::start(UpdateUserDriver &driver)
{
    if (m_options.appImagePath.isEmpty())
        return QStringLiteral("Updates are managed by your package manager.");
    if (m_options.publicKey.size() != UpdateSignature::publicKeySize)
        return QStringLiteral("This build has no key to check updates with.");
    m_currentVersion = UpdateVersion::parse(m_options.currentVersion);
    if (!m_currentVersion)
        return QStringLiteral("This build has no version to compare updates with.");
    if (!isSecureUpdateURL(m_options.appcastURL))
        return QStringLiteral("The update feed must be served over HTTPS.");

    m_driver = &driver;
    if (auto *application = QCoreApplication::instance())
        connect(application, &QCoreApplication::aboutToQuit, this, &AppcastUpdater::installOnQuit);
    askForAutomaticChecks();
    emit canCheckForUpdatesChanged();
    return std::nullopt;
}

bool AppcastUpdater::canCheckForUpdates() const
{
    return m_driver && !m_busy;
}

void AppcastUpdater::checkForUpdates()
{
    if (!canCheckForUpdates())
        return;
    // Transfers are short or bounded, and the update UI offers no cancel button.
    m_driver->showUserInitiatedUpdateCheck({});
    check(true);
}

void AppcastUpdater::installOnQuit()
{
    if (!m_staged)
        return;
    // On failure the old program simply stays; there is no one left to tell.
    replaceAppImage(*m_staged->file, m_options.appImagePath);
    m_staged.reset();
}

QCoro::Task<> AppcastUpdater::check(bool userInitiated)
{
    const QPointer<AppcastUpdater> guard(this);
    setBusy(true);
    QBuffer body;
    body.open(QIODevice::WriteOnly);
    const auto failure =
        co_await transferBounded(*m_network, request(m_options.appcastURL), body, maximumAppcastSize);
    if (!guard)
        co_return;
    recordCheckTime();

    const QString unreadable = QStringLiteral("The update feed couldn't be read.");
    std::optional<QString> error;
    std::optional<AppcastItem> newest;
    if (failure)
        error = failure->kind == TransferFailure::Kind::network
                    ? QStringLiteral("Couldn't reach the update server. Check your connection and try again.")
                    : unreadable;
    else if (const auto appcast = Appcast::parse(body.data()))
        newest = appcast->newestUpdate(*m_currentVersion);
    else
        error = unreadable;

    if (newest)
        offer(*newest, userInitiated);
    else if (!userInitiated)
        setBusy(false); // background checks stay silent unless they find something
    else if (error)
        fail(*error);
    else
        m_driver->showUpdateNotFound({}, endSession());
}

void AppcastUpdater::offer(const AppcastItem &item, bool userInitiated)
{
    // A release downloaded earlier is kept only while the appcast still offers exactly it.
    if (m_staged && m_staged->item != item)
        m_staged.reset();
    setBusy(false);
    const quint64 generation = ++m_replyGeneration;
    m_driver->showUpdateFound(item, UserUpdateState{userInitiated},
                              [this, guard = QPointer(this), generation, item](UserUpdateChoice choice) {
                                  if (!guard || generation != m_replyGeneration || m_busy ||
                                      choice != UserUpdateChoice::install)
                                      return;
                                  if (m_staged)
                                      offerRelaunch();
                                  else
                                      download(item);
                              });
}

QCoro::Task<> AppcastUpdater::download(AppcastItem item)
{
    const QPointer<AppcastUpdater> guard(this);
    setBusy(true);
    if (item.edSignature.isEmpty()) {
        fail(QStringLiteral("The update isn't signed."));
        co_return;
    }
    if (!isSecureUpdateURL(item.url)) {
        fail(QStringLiteral("The update's address isn't secure."));
        co_return;
    }
    if (item.length > maximumUpdateSize) {
        fail(QStringLiteral("The update is too large."));
        co_return;
    }
    // Next to the AppImage, so that putting it in place is a rename within one file system.
    const QFileInfo appImage(m_options.appImagePath);
    const QStorageInfo storage(appImage.absolutePath());
    if (storage.isValid() && storage.bytesAvailable() < item.length) {
        fail(QStringLiteral("There isn't enough free disk space for the update."));
        co_return;
    }
    auto file = std::make_unique<QTemporaryFile>(appImage.absolutePath() + QStringLiteral("/.") +
                                                 appImage.fileName() + QStringLiteral(".update-XXXXXX"));
    if (!file->open()) {
        fail(QStringLiteral("The update couldn't be saved: %1").arg(file->errorString()));
        co_return;
    }

    m_driver->showDownloadInitiated({});
    m_driver->showDownloadDidReceiveExpectedContentLength(quint64(item.length));
    const auto failure = co_await transferBounded(
        *m_network, request(item.url), *file, item.length,
        [driver = m_driver](qint64 length) { driver->showDownloadDidReceiveDataOfLength(quint64(length)); });
    if (!guard)
        co_return;
    if (failure) {
        fail(downloadFailureText(*failure));
        co_return;
    }
    if (!file->flush()) {
        fail(QStringLiteral("The update couldn't be saved: %1").arg(file->errorString()));
        co_return;
    }
    if (file->size() < item.length) {
        fail(QStringLiteral("The update download was incomplete."));
        co_return;
    }

    m_driver->showDownloadDidStartExtractingUpdate();
    const bool signedByUs =
        co_await verifyInBackground(file->fileName(), item.edSignature, m_options.publicKey);
    if (!guard)
        co_return;
    if (!signedByUs) {
        fail(QStringLiteral("The update's signature isn't valid."));
        co_return;
    }
    m_staged = StagedUpdate{std::move(item), std::move(file)};
    offerRelaunch();
}

void AppcastUpdater::offerRelaunch()
{
    setBusy(false);
    const quint64 generation = ++m_replyGeneration;
    m_driver->showReadyToInstallAndRelaunch(
        [this, guard = QPointer(this), generation](UserUpdateChoice choice) {
            if (guard && generation == m_replyGeneration && !m_busy && m_staged &&
                choice == UserUpdateChoice::install)
                installAndRelaunch();
        });
}

void AppcastUpdater::installAndRelaunch()
{
    setBusy(true);
    m_driver->showInstallingUpdate(false, {});
    const auto failure = replaceAppImage(*m_staged->file, m_options.appImagePath);
    m_staged.reset();
    if (failure) {
        fail(QStringLiteral("The update couldn't be installed: %1").arg(*failure));
        return;
    }
    m_options.relaunch(m_options.appImagePath);
}

void AppcastUpdater::fail(const QString &message)
{
    m_driver->showUpdaterError(message, endSession());
}

UpdateAcknowledgement AppcastUpdater::endSession()
{
    return [guard = QPointer(this)] {
        if (guard)
            guard->setBusy(false);
    };
}

void AppcastUpdater::setBusy(bool busy)
{
    if (m_busy == busy)
        return;
    m_busy = busy;
    emit canCheckForUpdatesChanged();
}

QNetworkRequest AppcastUpdater::request(const QUrl &url) const
{
    QNetworkRequest request(url);
    request.setTransferTimeout(int(m_options.transferTimeout.count()));
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setHeader(QNetworkRequest::UserAgentHeader,
                      QStringLiteral("Pitchlark/") + m_options.currentVersion);
    return request;
}

void AppcastUpdater::askForAutomaticChecks()
{
    const QSettings settings(m_options.settingsPath, QSettings::IniFormat);
    if (const auto stored = storedBool(settings.value(automaticChecksKey))) {
        if (*stored)
            enableAutomaticChecks();
        return;
    }
    m_driver->showUpdatePermissionRequest([guard = QPointer(this)](UpdatePermissionResponse response) {
        if (!guard)
            return;
        QSettings(guard->m_options.settingsPath, QSettings::IniFormat)
            .setValue(automaticChecksKey, response.automaticUpdateChecks);
        if (response.automaticUpdateChecks)
            guard->enableAutomaticChecks();
    });
}

void AppcastUpdater::enableAutomaticChecks()
{
    m_automaticChecks = true;
    scheduleBackgroundCheck(m_options.firstBackgroundCheckDelay);
}

void AppcastUpdater::scheduleBackgroundCheck(std::chrono::milliseconds earliest)
{
    if (!m_automaticChecks)
        return;
    const QSettings settings(m_options.settingsPath, QSettings::IniFormat);
    const QDateTime lastCheck =
        QDateTime::fromString(settings.value(lastCheckKey).toString(), Qt::ISODateWithMs);
    std::chrono::milliseconds wait = earliest;
    if (lastCheck.isValid()) {
        // A last check in the future (the clock was set back) counts as one just now.
        const std::chrono::milliseconds due(QDateTime::currentDateTimeUtc().msecsTo(
            lastCheck.addMSecs(m_options.backgroundCheckInterval.count())));
        wait = std::max(earliest, std::min(due, m_options.backgroundCheckInterval));
    }
    m_backgroundCheck.start(wait);
}

void AppcastUpdater::recordCheckTime()
{
    QSettings(m_options.settingsPath, QSettings::IniFormat)
        .setValue(lastCheckKey, QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs));
    scheduleBackgroundCheck(m_options.backgroundCheckInterval);
}
