#pragma once

#include "LoginItem.h"

#include <QDBusConnection>
#include <QObject>
#include <QVariantMap>

// Start at login for the Flatpak build, through the Background portal: the sandbox cannot write the
// host's autostart folder, so the portal asks the user and writes the entry itself. The portal cannot
// be asked afterwards what it decided, so the last granted answer is remembered in a small file.
class BackgroundPortalLoginItem : public QObject, public LoginItem {
    Q_OBJECT

public:
    explicit BackgroundPortalLoginItem(QString grantPath = defaultGrantPath(),
                                       QDBusConnection bus = QDBusConnection::sessionBus());

    // ~/.config/pitchlark/start-at-login-granted; present while the portal has granted autostart.
    static QString defaultGrantPath();

    Status status() const override;
    std::optional<QString> registerItem() override { return request(true); }
    std::optional<QString> unregisterItem() override { return request(false); }

private slots:
    void onResponse(uint response, const QVariantMap &results);

private:
    std::optional<QString> request(bool autostart);
    void stopListening();
    void remember(bool granted);

    QString m_grantPath;
    QDBusConnection m_bus;
    QString m_requestPath;
    bool m_requestedAutostart = false;
};
