#pragma once

#include "AppcastItem.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <functional>

// The user's answer to an offered or a downloaded update. The values match the wire values of the
// update framework this interface is modelled on.
enum class UserUpdateChoice { skip = 0, install = 1, dismiss = 2 };

struct UpdatePermissionResponse {
    bool automaticUpdateChecks = false;
    bool sendSystemProfile = false;
};

struct UserUpdateState {
    // True when the user asked for the check that found the update.
    bool userInitiated = false;
};

using UpdateChoiceReply = std::function<void(UserUpdateChoice)>;
using UpdatePermissionReply = std::function<void(UpdatePermissionResponse)>;
using UpdateAcknowledgement = std::function<void()>;
using UpdateCancellation = std::function<void()>;

// What an update engine tells the program's update UI, one method per moment of an update flow.
// Engines call it on the main thread. Replies and acknowledgements may be kept and called later, once.
class UpdateUserDriver {
public:
    virtual ~UpdateUserDriver() = default;

    virtual void showUpdatePermissionRequest(UpdatePermissionReply reply) = 0;
    virtual void showUserInitiatedUpdateCheck(UpdateCancellation cancellation) = 0;
    virtual void showUpdateFound(const AppcastItem &item, const UserUpdateState &state,
                                 UpdateChoiceReply reply) = 0;
    virtual void showUpdateReleaseNotes(const QByteArray &downloadData) = 0;
    virtual void showUpdateReleaseNotesFailedToDownload(const QString &error) = 0;
    virtual void showUpdateNotFound(const QString &error, UpdateAcknowledgement acknowledgement) = 0;
    virtual void showUpdaterError(const QString &error, UpdateAcknowledgement acknowledgement) = 0;
    virtual void showDownloadInitiated(UpdateCancellation cancellation) = 0;
    virtual void showDownloadDidReceiveExpectedContentLength(std::uint64_t expectedContentLength) = 0;
    virtual void showDownloadDidReceiveDataOfLength(std::uint64_t length) = 0;
    virtual void showDownloadDidStartExtractingUpdate() = 0;
    virtual void showExtractionReceivedProgress(double progress) = 0;
    virtual void showReadyToInstallAndRelaunch(UpdateChoiceReply reply) = 0;
    virtual void showInstallingUpdate(bool applicationTerminated,
                                      UpdateCancellation retryTerminatingApplication) = 0;
    virtual void showUpdateInstalledAndRelaunched(bool relaunched, UpdateAcknowledgement acknowledgement) = 0;
    virtual void showUpdateInFocus() = 0;
    virtual void dismissUpdateInstallation() = 0;
};
