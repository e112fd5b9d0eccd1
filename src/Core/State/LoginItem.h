#pragma once

#include <QString>

#include <functional>
#include <optional>

// Registration of the program to start when the user logs in.
class LoginItem {
public:
    enum class Status { notRegistered, enabled, requiresApproval, notFound };

    virtual ~LoginItem() = default;
    virtual Status status() const = 0;
    // Each gives the reason in the system's words when it fails.
    virtual std::optional<QString> registerItem() = 0;
    virtual std::optional<QString> unregisterItem() = 0;

    // Called when the status changes later than the call that asked for it, as when the user answers
    // a system prompt.
    std::function<void()> onStatusChange;
};
