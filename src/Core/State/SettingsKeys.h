#pragma once

#include <QString>

// The keys of the persisted settings, exact and case-sensitive.
namespace SettingsKeys {
inline const QString favoriteTeamIDs = QStringLiteral("FavoriteTeamIDs");
inline const QString pinnedLiveMatchID = QStringLiteral("PinnedLiveMatchID");
inline const QString trayDisplayMode = QStringLiteral("TrayDisplayMode");
inline const QString trayIconScore = QStringLiteral("TrayIconScore");
inline const QString refreshIntervalSeconds = QStringLiteral("RefreshIntervalSeconds");
inline const QString glassBlur = QStringLiteral("GlassBlur");
inline const QString glassTintHue = QStringLiteral("GlassTintHue");
inline const QString glassTint = QStringLiteral("GlassTint");
inline const QString glassGrain = QStringLiteral("GlassGrain");
inline const QString surfaceOpacity = QStringLiteral("SurfaceOpacity");
inline const QString notificationsEnabled = QStringLiteral("NotificationsEnabled");
inline const QString notifyMatchStart = QStringLiteral("NotifyMatchStart");
inline const QString notifyGoals = QStringLiteral("NotifyGoals");
inline const QString notifyFullTime = QStringLiteral("NotifyFullTime");
inline const QString inAppBanners = QStringLiteral("InAppBanners");
inline const QString floatingCards = QStringLiteral("FloatingCards");
inline const QString hideScores = QStringLiteral("HideScores");
} // namespace SettingsKeys
