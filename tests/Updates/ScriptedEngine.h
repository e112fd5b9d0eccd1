#pragma once

#include "UpdateEngine.h"
#include "UpdateUserDriver.h"

#include <optional>

// An engine that only answers the controller's three operations; the test makes the driver callbacks
// itself, in the order a real engine would.
class ScriptedEngine final : public UpdateEngine {
public:
    explicit ScriptedEngine(std::optional<QString> startFailure = std::nullopt)
        : m_startFailure(std::move(startFailure))
    {}

    std::optional<QString> start(UpdateUserDriver &) override { return m_startFailure; }
    bool canCheckForUpdates() const override { return m_canCheck; }
    void checkForUpdates() override { ++m_checks; }

    void setCanCheck(bool canCheck)
    {
        m_canCheck = canCheck;
        emit canCheckForUpdatesChanged();
    }
    int checks() const { return m_checks; }

private:
    std::optional<QString> m_startFailure;
    bool m_canCheck = true;
    int m_checks = 0;
};
