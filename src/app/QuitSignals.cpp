#include "app/QuitSignals.h"

#include <sys/socket.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QSocketNotifier>
#include <csignal>

#include "framework/Log.h"

namespace zt {

namespace {

// The handler may only do what is safe in a signal handler: it writes the
// signal's number into a socket that the event loop watches.
int wakeEnds[2] = {-1, -1};
constexpr int kSignals[] = {SIGTERM, SIGINT, SIGHUP};

void onSignal(int signal) {
    const char byte = static_cast<char>(signal);
    [[maybe_unused]] const auto written = ::write(wakeEnds[0], &byte, 1);
}

}  // namespace

void quitOnTerminationSignals() {
    if (wakeEnds[0] >= 0)
        return;
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, wakeEnds) != 0) {
        warn("Termination signals will end the run without saving (no socket for them)");
        return;
    }
    auto* notifier =
        new QSocketNotifier(wakeEnds[1], QSocketNotifier::Read, QCoreApplication::instance());
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, [] {
        char byte = 0;
        while (::read(wakeEnds[1], &byte, 1) == 1)
            log("Quitting on signal " + std::to_string(int(byte)));
        // On its way out: any further one ends the program at once.
        for (int signal : kSignals)
            std::signal(signal, SIG_DFL);
        QCoreApplication::quit();
    });
    struct sigaction action {};
    action.sa_handler = onSignal;
    sigemptyset(&action.sa_mask);
    // A second signal of the same kind ends the program even when the
    // event loop is stuck and never reads the first.
    action.sa_flags = SA_RESTART | SA_RESETHAND;
    for (int signal : kSignals)
        ::sigaction(signal, &action, nullptr);
}

}  // namespace zt
