#include "LabelHosts.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QFile>
#include <QFileInfo>

bool hostShowsLabels(const QString &watcherProgram, const QString &currentDesktop)
{
    if (!watcherProgram.isEmpty())
        return watcherProgram == QLatin1StringView("gnome-shell") ||
               watcherProgram.contains(QLatin1StringView("indicator-application"));
    const QStringList desktops = currentDesktop.split(QLatin1Char(':'), Qt::SkipEmptyParts);
    return desktops.contains(QLatin1StringView("GNOME"), Qt::CaseInsensitive) ||
           desktops.contains(QLatin1StringView("Unity"), Qt::CaseInsensitive);
}

QString ownerProgram(const QDBusConnection &bus, const QString &service)
{
    const QDBusReply<uint> pid = bus.interface()->servicePid(service);
    if (!pid.isValid())
        return {};
    // The command line rather than comm, which the kernel cuts at 15 characters.
    QFile commandLine(QStringLiteral("/proc/%1/cmdline").arg(pid.value()));
    if (!commandLine.open(QIODevice::ReadOnly))
        return {};
    const QByteArray program = commandLine.readAll().split('\0').value(0);
    return QFileInfo(QString::fromLocal8Bit(program)).fileName();
}
