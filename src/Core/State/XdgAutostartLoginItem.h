#pragma once

#include "LoginItem.h"

// Start at login through an XDG autostart entry, ~/.config/autostart/pitchlark.desktop.
class XdgAutostartLoginItem : public LoginItem {
public:
    // executablePath: what the entry starts; empty when the program has no stable path of its own.
    explicit XdgAutostartLoginItem(QString executablePath = stableExecutablePath());

    static QString entryPath();
    // The AppImage when run from one, else the installed binary; empty for a binary in a build tree or
    // a temporary folder, which would not be there at the next login.
    static QString stableExecutablePath();

    Status status() const override;
    std::optional<QString> registerItem() override;
    std::optional<QString> unregisterItem() override;

private:
    QString m_executablePath;
};
