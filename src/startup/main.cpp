#include "startup/startup_sequence.h"

#include <array>
#include <csignal>
#include <cstdio>

int main() {
    // A diagnostic that nobody reads, or a record that hits a size limit, must not end the run
    // between removing a link and making it again.
    (void)std::signal(SIGPIPE, SIG_IGN);
    (void)std::signal(SIGXFSZ, SIG_IGN);

    // One write per line, so that the lines of programs that share a log do not mix.
    static std::array<char, 512> line;
    (void)std::setvbuf(stderr, line.data(), _IOLBF, line.size());

    run_startup_sequence();
    return 0;
}
