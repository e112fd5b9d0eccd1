#pragma once

#include <QByteArray>
#include <QFile>

// This process's resident memory in KiB, from /proc; -1 when it cannot be read.
inline long residentKilobytes()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    for (QByteArray line = status.readLine(); !line.isEmpty(); line = status.readLine()) {
        if (line.startsWith("VmRSS:"))
            return line.mid(6).trimmed().split(' ').constFirst().toLong();
    }
    return -1;
}
