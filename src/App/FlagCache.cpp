#include "FlagCache.h"

#include <QNetworkAccessManager>
#include <QNetworkDiskCache>
#include <QStandardPaths>

FlagCacheFactory &FlagCacheFactory::shared()
{
    static FlagCacheFactory factory;
    return factory;
}

QNetworkAccessManager *FlagCacheFactory::create(QObject *parent)
{
    // Called on the engine's loader threads too: everything made here belongs to that call alone.
    auto *manager = new QNetworkAccessManager(parent);
    auto *cache = new QNetworkDiskCache(manager);
    // Next to the data service's cache, which lives under the same folder whatever the program is called.
    cache->setCacheDirectory(QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
                             QStringLiteral("/com.pitchlark.tidewell/flags"));
    cache->setMaximumCacheSize(maximumCacheSize);
    manager->setCache(cache);
    return manager;
}
