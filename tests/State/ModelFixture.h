#pragma once

#include "State/AppModel.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <memory>

// A model on a throw-away profile: its own settings file and cache folder, talking to baseURL.
class ModelFixture {
public:
    explicit ModelFixture(const QString &baseURL = QStringLiteral("http://127.0.0.1:9"))
    {
        qputenv("XDG_CONFIG_HOME", m_profile.filePath(QStringLiteral("config")).toUtf8());
        qputenv("XDG_CACHE_HOME", m_profile.filePath(QStringLiteral("cache")).toUtf8());
        setBaseURL(baseURL);
    }

    static void setBaseURL(const QString &baseURL) { qputenv("WC_API_BASE_URL", baseURL.toUtf8()); }

    // A new model over the profile, as a fresh start of the program would make it.
    std::unique_ptr<AppModel> makeModel(std::function<QDateTime()> now = {},
                                        std::unique_ptr<NotificationSender> notifications = {})
    {
        return std::make_unique<AppModel>(services(std::move(now), std::move(notifications)));
    }

    // What a model over the profile talks to, for callers that add to it or build the model elsewhere.
    AppModel::Services services(std::function<QDateTime()> now = {},
                                std::unique_ptr<NotificationSender> notifications = {})
    {
        m_api = std::make_unique<APIService>(std::chrono::milliseconds(2000));
        AppModel::Services services;
        services.api = m_api.get();
        services.now = std::move(now);
        services.notifications = std::move(notifications);
        return services;
    }

    // Whole files, for what a test lays out on disk and reads back; a write makes its folders.
    static bool writeFile(const QString &path, const QByteArray &bytes)
    {
        QDir().mkpath(QFileInfo(path).absolutePath());
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    }
    static QByteArray readFile(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    APIService &api() { return *m_api; }
    QString settingsPath() const
    {
        return m_profile.filePath(QStringLiteral("config/pitchlark/settings.json"));
    }

private:
    QTemporaryDir m_profile;
    std::unique_ptr<APIService> m_api;
};
