#pragma once

#include "LoginItem.h"

#include <QObject>

#include <memory>
#include <optional>

// The settings page's start-at-login switch over the desktop's login item: whether the program is
// registered, and the hint beneath the switch when it cannot be or waits for the user.
class StartAtLogin : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool enabled READ enabled NOTIFY enabledChanged)
    Q_PROPERTY(QString statusMessage READ statusMessageText NOTIFY statusMessageChanged)

public:
    // Reads the login item's state, and follows it when it changes later.
    explicit StartAtLogin(std::unique_ptr<LoginItem> loginItem, QObject *parent = nullptr);

    bool enabled() const { return m_enabled; }
    const std::optional<QString> &statusMessage() const { return m_statusMessage; }

    Q_INVOKABLE void refresh();
    // Registers or unregisters the program; a failure's reason replaces the hint.
    Q_INVOKABLE void update(bool enabled);

signals:
    void enabledChanged();
    void statusMessageChanged();

private:
    QString statusMessageText() const { return m_statusMessage.value_or(QString()); }
    void setEnabled(bool enabled);
    void setStatusMessage(const std::optional<QString> &message);

    std::unique_ptr<LoginItem> m_loginItem;
    bool m_enabled = false;
    std::optional<QString> m_statusMessage;
};
