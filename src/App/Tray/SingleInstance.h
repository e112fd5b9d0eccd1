#pragma once

#include <QObject>
#include <QTextStream>

#include <optional>

// One Pitchlark per session: the running one owns com.pitchlark.Pitchlark on the session bus, and a
// second start (or `pitchlark --toggle`, bound to a keyboard shortcut) asks it to toggle the panel.
// Owning the name decides it, not whether the owner answers in time: a stopped or busy first instance
// still owns the name, so a second start never becomes a second poller.
//
//     SingleInstance instance;
//     if (const auto exitCode = instance.claimOrHandOver(errors))
//         return *exitCode;
//     connect(&instance, &SingleInstance::toggleRequested, ...);
//
// Without a session bus the program runs alone.
class SingleInstance : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.pitchlark.Pitchlark")

public:
    enum class ToggleOutcome { toggled, notRunning, notResponding };

    // How long the owner has to answer a toggle before it counts as hung.
    static constexpr int toggleTimeoutMs = 3000;

    using QObject::QObject;
    ~SingleInstance() override;

    // Asks the running instance to toggle its panel; on failure says why on errors. The exit code of
    // `pitchlark --toggle`: 0 when toggled.
    static int toggleRunningInstance(QTextStream &errors);

    // Owns the name and serves Toggle. When another process owns it, hands this start over to it and
    // gives the exit code to end with (0 when the owner toggled its panel); nothing when this process
    // is the instance, also when there is no session bus at all.
    std::optional<int> claimOrHandOver(QTextStream &errors);

public slots:
    Q_SCRIPTABLE void Toggle() { emit toggleRequested(); }

signals:
    void toggleRequested();

private:
    enum class Claim { owned, noBus, taken };
    Claim claim();
    static ToggleOutcome askToToggle();

    bool m_claimed = false;
};
