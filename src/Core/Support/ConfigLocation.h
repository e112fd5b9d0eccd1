#pragma once

#include <QStandardPaths>
#include <QString>

// ~/.config/pitchlark/pitchlark.conf, with XDG_CONFIG_HOME respected.
inline QString pitchlarkConfigFilePath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/pitchlark/pitchlark.conf");
}
