#pragma once

#include <QObject>

// One Pitchlark per session: the running one owns com.pitchlark.Pitchlark on the session bus, and a
// second start (or `pitchlark --toggle`, bound to a keyboard shortcut) asks it to toggle the panel.
//
//     if (SingleInstance::toggleRunningInstance())
//         return 0;
//     SingleInstance instance;
//     if (!instance.claim() && SingleInstance::toggleRunningInstance())
//         return 0; // another instance claimed the name in the meantime
//     connect(&instance, &SingleInstance::toggleRequested, ...);
//
// Without a session bus both calls return false and the program runs alone.
class SingleInstance : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.pitchlark.Pitchlark")

public:
    using QObject::QObject;
    ~SingleInstance() override;

    // True when a running instance answered the request to toggle its panel.
    static bool toggleRunningInstance();

    // Owns the name and serves Toggle; false when there is no session bus or the name is taken.
    bool claim();

public slots:
    Q_SCRIPTABLE void Toggle() { emit toggleRequested(); }

signals:
    void toggleRequested();

private:
    bool m_claimed = false;
};
