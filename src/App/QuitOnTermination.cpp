#include "QuitOnTermination.h"

#include <QCoreApplication>

#include <array>
#include <cerrno>
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr std::array<int, 3> terminationSignals{SIGINT, SIGTERM, SIGHUP};
// A signal handler may only write to a descriptor; the event loop reads the other end.
int signalPipe[2] = {-1, -1};

extern "C" void onTerminationSignal(int signalNumber)
{
    const int interruptedErrno = errno;
    const char byte = char(signalNumber);
    [[maybe_unused]] const auto written = ::write(signalPipe[1], &byte, 1);
    for (const int each : terminationSignals)
        std::signal(each, SIG_DFL);
    errno = interruptedErrno;
}

} // namespace

QuitOnTermination::QuitOnTermination()
{
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, signalPipe) != 0)
        return;
    m_notifier = std::make_unique<QSocketNotifier>(signalPipe[0], QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] {
        char byte = 0;
        [[maybe_unused]] const auto read = ::read(signalPipe[0], &byte, 1);
        m_notifier->setEnabled(false);
        QCoreApplication::quit();
    });
    struct sigaction action {};
    action.sa_handler = onTerminationSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (const int each : terminationSignals)
        ::sigaction(each, &action, nullptr);
}

QuitOnTermination::~QuitOnTermination()
{
    if (!m_notifier)
        return;
    for (const int each : terminationSignals)
        std::signal(each, SIG_DFL);
    m_notifier.reset();
    ::close(signalPipe[0]);
    ::close(signalPipe[1]);
    signalPipe[0] = signalPipe[1] = -1;
}
