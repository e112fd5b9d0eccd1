#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <memory>

// Turns SIGINT, SIGTERM and SIGHUP into a normal quit of the event loop, so that the objects of the run
// are destroyed and clean up after themselves (Ctrl-C in a terminal, a logout, `kill`). A second signal
// during the quit ends the process at once, as usual. One at a time per process.
class QuitOnTermination : public QObject {
    Q_OBJECT

public:
    QuitOnTermination();
    ~QuitOnTermination() override;

private:
    std::unique_ptr<QSocketNotifier> m_notifier;
};
