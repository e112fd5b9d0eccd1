#pragma once

#include <QQmlNetworkAccessManagerFactory>

// Gives the panel's QML engine network access managers that keep what they fetch (the team flags) in a
// disk cache under the user's cache folder, so flags show at once and offline after their first load.
class FlagCacheFactory : public QQmlNetworkAccessManagerFactory {
public:
    static constexpr qint64 maximumCacheSize = 16 * 1024 * 1024;

    // One for the program; an engine does not own its factory, and this one outlives every engine.
    static FlagCacheFactory &shared();

    QNetworkAccessManager *create(QObject *parent) override;
};
