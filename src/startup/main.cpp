#include "startup/startup_sequence.h"

#include <array>
#include <csignal>
#include <cstdio>

int main() {
    // A diagnostic that nobody reads or a record beyond a size limit is no reason to stop halfway.
    (void)std::signal(SIGPIPE, SIG_IGN);
    (void)std::signal(SIGXFSZ, SIG_IGN);

    // One write for each line that fits, so that the lines of programs that share a log do not mix.
    static std::array<char, 2048> line;
    (void)std::setvbuf(stderr, line.data(), _IOLBF, line.size());

    run_startup_sequence();
    return 0;
}
