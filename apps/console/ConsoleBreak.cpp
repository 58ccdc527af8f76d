#include "ConsoleBreak.h"

#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace {
volatile std::sig_atomic_t gBreak = 0;
// The signal may reach any thread, and just before the wait begins; a byte in a pipe is not missed.
int gPipe[2] = {-1, -1};

extern "C" void onInterrupt(int) {
    const int error = errno;
    gBreak = 1;
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(gPipe[1], &byte, 1); // a full pipe says the same
    errno = error;
}
void drain() {
    for (char bytes[64]; gPipe[0] >= 0 && read(gPipe[0], bytes, sizeof bytes) > 0;) {
    }
}
} // namespace

void consoleCatchBreak() {
    if (gPipe[0] < 0 && pipe2(gPipe, O_NONBLOCK | O_CLOEXEC) != 0)
        gPipe[0] = gPipe[1] = -1; // Ctrl-C is then noticed after the line
    struct sigaction action = {};
    action.sa_handler = onInterrupt;
    action.sa_flags = SA_RESTART; // files are read and written to the end
    sigaction(SIGINT, &action, nullptr);
}
bool consoleBreakPending() {
    return gBreak != 0;
}
bool consoleTakeBreak() {
    const bool asked = gBreak != 0;
    gBreak = 0;
    drain();
    return asked;
}
bool consoleWaitForInput() {
    while (gBreak == 0) {
        pollfd ends[] = {{STDIN_FILENO, POLLIN, 0}, {gPipe[0], POLLIN, 0}}; // one below 0 is left out
        if (poll(ends, 2, -1) < 0 && errno != EINTR)
            return true; // reading will tell
        if (gBreak != 0)
            return false;
        if (ends[0].revents != 0)
            return true;
        drain(); // of a break that was taken meanwhile
    }
    return false;
}
