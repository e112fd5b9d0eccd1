#pragma once

#include "UpdateController.h"

#include <QStringList>
#include <QTest>

// Makes the driver callbacks an engine would, from short step texts. Replies and acknowledgements write
// what they receive, and acknowledgements also the phase at that moment, into log.
struct UpdateScript {
    UpdateController &controller;
    QStringList log;

    void run(const QStringList &steps)
    {
        for (const QString &step : steps) {
            const QStringList words = step.split(u' ');
            const QString &verb = words[0];
            const QString argument = words.value(1);
            if (verb == u"check")
                controller.showUserInitiatedUpdateCheck({});
            else if (verb == u"offer" || verb == u"background-offer")
                controller.showUpdateFound(item(), UserUpdateState{verb == u"offer"}, reply(argument));
            else if (verb == u"download")
                controller.showDownloadInitiated({});
            else if (verb == u"length")
                controller.showDownloadDidReceiveExpectedContentLength(argument.toULongLong());
            else if (verb == u"data")
                controller.showDownloadDidReceiveDataOfLength(argument.toULongLong());
            else if (verb == u"extract")
                controller.showDownloadDidStartExtractingUpdate();
            else if (verb == u"ready")
                controller.showReadyToInstallAndRelaunch(reply(argument));
            else if (verb == u"installing")
                controller.showInstallingUpdate(false, {});
            else if (verb == u"not-found")
                controller.showUpdateNotFound({}, acknowledgement(argument));
            else if (verb == u"error")
                controller.showUpdaterError(words.mid(2).join(u' '), acknowledgement(argument));
            else if (verb == u"primary")
                controller.primaryAction();
            else if (verb == u"dismiss")
                controller.dismiss();
            else
                QFAIL(qPrintable(QStringLiteral("unknown step ") + step));
        }
    }

    static AppcastItem item()
    {
        AppcastItem item;
        item.versionString = QStringLiteral("200");
        item.displayVersionString = QStringLiteral("2.0");
        return item;
    }
    UpdateChoiceReply reply(const QString &name)
    {
        return [this, name](UserUpdateChoice choice) {
            log << name + (choice == UserUpdateChoice::install ? QStringLiteral(":install")
                                                               : QStringLiteral(":dismiss"));
        };
    }
    UpdateAcknowledgement acknowledgement(const QString &name)
    {
        return [this, name] {
            log << name + QStringLiteral(":ack in ") +
                       QVariant::fromValue(controller.phase().kind()).toString();
        };
    }
};
