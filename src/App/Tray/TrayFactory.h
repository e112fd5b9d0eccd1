#pragma once

#include "TrayItem.h"

#include <memory>

// The best tray item this desktop offers: with a session bus, one that follows the desktop's tray hosts
// as they come and go (SessionTrayItem); without one, Qt's QSystemTrayIcon when the application is a
// QApplication and a system tray is there; else nullptr: the program runs on, reached through
// SingleInstance.
std::unique_ptr<TrayItem> createTrayItem(QObject *parent = nullptr);
