#include "StartAtLogin.h"

StartAtLogin::StartAtLogin(std::unique_ptr<LoginItem> loginItem, QObject *parent)
    : QObject(parent), m_loginItem(std::move(loginItem))
{
    m_loginItem->onStatusChange = [this] { refresh(); };
    refresh();
}

void StartAtLogin::refresh()
{
    switch (m_loginItem->status()) {
    case LoginItem::Status::enabled:
        setEnabled(true);
        setStatusMessage(std::nullopt);
        break;
    case LoginItem::Status::requiresApproval:
        // The registration exists and only waits for the user, so the switch shows it as on.
        setEnabled(true);
        setStatusMessage(QStringLiteral("Approve Pitchlark in System Settings › Login Items."));
        break;
    case LoginItem::Status::notFound:
        setEnabled(false);
        setStatusMessage(QStringLiteral("Start at Login is unavailable for this build."));
        break;
    case LoginItem::Status::notRegistered:
        setEnabled(false);
        setStatusMessage(std::nullopt);
        break;
    }
}

void StartAtLogin::update(bool enabled)
{
    const auto failure = enabled ? m_loginItem->registerItem() : m_loginItem->unregisterItem();
    refresh();
    if (failure)
        setStatusMessage(*failure);
}

void StartAtLogin::setEnabled(bool enabled)
{
    if (enabled == m_enabled)
        return;
    m_enabled = enabled;
    emit enabledChanged();
}

void StartAtLogin::setStatusMessage(const std::optional<QString> &message)
{
    if (message == m_statusMessage)
        return;
    m_statusMessage = message;
    emit statusMessageChanged();
}
