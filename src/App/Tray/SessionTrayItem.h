#pragma once

#include "StatusNotifierTrayItem.h"
#include "TrayItem.h"

#include <memory>

class SystemTrayFallbackItem;

// The program's tray item for the whole session, whenever the desktop's tray comes up: a
// StatusNotifierItem that registers with every StatusNotifierWatcher that appears, and, while there is
// none, Qt's XEmbed tray icon on X11, which shows itself once an XEmbed tray appears. With no tray at all
// the program runs on, and says once on standard error how to reach it.
class SessionTrayItem : public TrayItem {
    Q_OBJECT

public:
    explicit SessionTrayItem(QObject *parent = nullptr);
    ~SessionTrayItem() override;

    void setTitle(const QString &title) override;
    void setLiveMatches(const QStringList &lines) override;
    void setScoreInIcon(bool drawn) override;
    bool hostShowsLabels() const override { return m_item.hostShowsLabels(); }

    StatusNotifierTrayItem &statusNotifierItem() { return m_item; }
    // The XEmbed tray icon in use while no watcher is there; nullptr otherwise.
    SystemTrayFallbackItem *fallback() const { return m_fallback.get(); }

private:
    void followHost();
    void relay(TrayItem &item);

    StatusNotifierTrayItem m_item;
    std::unique_ptr<SystemTrayFallbackItem> m_fallback;
    QString m_title;
    QStringList m_liveMatches;
    bool m_scoreInIcon = false;
    bool m_saidNoTray = false;
};
