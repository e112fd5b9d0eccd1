#pragma once

#include <QObject>
#include <QString>

#include <optional>

class UpdateUserDriver;

// Finds, fetches and installs updates, reporting every step to an UpdateUserDriver. The controller
// uses only these three operations, so any engine (the appcast updater, a scripted one) can drive it.
class UpdateEngine : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    // Starts the engine with the driver it reports to. Returns the reason, readable by the user, when
    // this engine cannot update the program; it is then not used again.
    virtual std::optional<QString> start(UpdateUserDriver &driver) = 0;
    // Whether something else keeps the program up to date (its package manager), so that the engine
    // not starting is the normal case rather than a failure.
    virtual bool updatedElsewhere() const { return false; }
    // Whether a check may begin now; false while one is running.
    virtual bool canCheckForUpdates() const = 0;
    // A check the user asked for.
    virtual void checkForUpdates() = 0;

signals:
    void canCheckForUpdatesChanged();
};
