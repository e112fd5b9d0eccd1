#include "XdgAutostartLoginItem.h"

#include "Support/AppIdentity.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

XdgAutostartLoginItem::XdgAutostartLoginItem(QString executablePath)
    : m_executablePath(std::move(executablePath))
{}

QString XdgAutostartLoginItem::entryPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/autostart/pitchlark.desktop");
}

QString XdgAutostartLoginItem::stableExecutablePath()
{
    const QString appImage = qEnvironmentVariable("APPIMAGE");
    if (!appImage.isEmpty())
        return appImage;
    const QString binary = QCoreApplication::applicationFilePath();
    if (binary.isEmpty() || binary.startsWith(QDir::tempPath() + u'/'))
        return {};
    for (QDir folder = QFileInfo(binary).absoluteDir(); !folder.isRoot(); folder.cdUp()) {
        if (folder.exists(QStringLiteral("CMakeCache.txt")))
            return {};
    }
    return binary;
}

LoginItem::Status XdgAutostartLoginItem::status() const
{
    if (m_executablePath.isEmpty())
        return Status::notFound;
    QFile entry(entryPath());
    if (!entry.open(QIODevice::ReadOnly))
        return Status::notRegistered;
    // Desktop environments switch an entry off by flagging it rather than deleting it.
    while (!entry.atEnd()) {
        const QByteArray line = entry.readLine().trimmed();
        if (line == "Hidden=true" || line == "X-GNOME-Autostart-enabled=false")
            return Status::notRegistered;
    }
    return Status::enabled;
}

namespace {

// The program by name when PATH finds this very binary, so the entry keeps working if the package moves
// it; else its absolute path, quoted as the desktop entry format wants.
QString launchCommand(const QString &executablePath)
{
    const QFileInfo binary(executablePath);
    const QString onPath = QStandardPaths::findExecutable(binary.fileName());
    if (!onPath.isEmpty() && QFileInfo(onPath).canonicalFilePath() == binary.canonicalFilePath())
        return binary.fileName();
    QString quoted = executablePath;
    quoted.replace(u'\\', QStringLiteral("\\\\")).replace(u'"', QStringLiteral("\\\""));
    return u'"' + quoted + u'"';
}

} // namespace

std::optional<QString> XdgAutostartLoginItem::registerItem()
{
    if (m_executablePath.isEmpty())
        return QStringLiteral("Pitchlark is not installed in a fixed place.");
    QDir().mkpath(QFileInfo(entryPath()).absolutePath());
    QSaveFile entry(entryPath());
    const QByteArray contents = QStringLiteral("[Desktop Entry]\n"
                                               "Type=Application\n"
                                               "Name=Pitchlark\n"
                                               "Comment=Your World Cup 2026 companion\n"
                                               "Exec=%1\n"
                                               "Icon=%2\n"
                                               "X-GNOME-Autostart-enabled=true\n")
                                    .arg(launchCommand(m_executablePath), AppIdentity::appId())
                                    .toUtf8();
    if (!entry.open(QIODevice::WriteOnly) || entry.write(contents) != contents.size() || !entry.commit())
        return entry.errorString();
    return std::nullopt;
}

std::optional<QString> XdgAutostartLoginItem::unregisterItem()
{
    QFile entry(entryPath());
    if (entry.exists() && !entry.remove())
        return entry.errorString();
    return std::nullopt;
}
