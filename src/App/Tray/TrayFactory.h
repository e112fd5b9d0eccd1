#pragma once

#include "TrayItem.h"

#include <memory>

// The best tray item this desktop offers: a StatusNotifierItem when a StatusNotifierWatcher is on the
// session bus; else Qt's QSystemTrayIcon when the application is a QApplication and a system tray is
// there; else nullptr: no tray at all, and the program runs on, reached through SingleInstance.
std::unique_ptr<TrayItem> createTrayItem(QObject *parent = nullptr);
