#pragma once

#include "TrayItem.h"

#include <QMenu>
#include <QSystemTrayIcon>

// The tray item where no StatusNotifierWatcher runs: Qt's QSystemTrayIcon (the XEmbed tray on X11),
// which cannot show text, so the score is drawn into the icon itself unless that is turned off, and given
// in full in the tooltip. Needs a QApplication.
class SystemTrayFallbackItem : public TrayItem {
    Q_OBJECT

public:
    explicit SystemTrayFallbackItem(QObject *parent = nullptr);

    void setTitle(const QString &title) override;
    void setLiveMatches(const QStringList &lines) override;
    void setScoreInIcon(bool drawn) override;

private:
    void onActivated(QSystemTrayIcon::ActivationReason reason);
    void updateIcon();
    void updateToolTip();
    QPoint iconCentre() const;

    QMenu m_menu;
    QSystemTrayIcon m_icon;
    QString m_title;
    QStringList m_liveMatches;
    bool m_scoreInIcon = true;
};
