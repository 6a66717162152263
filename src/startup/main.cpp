#include "startup/startup_sequence.h"

#include <array>
#include <csignal>
#include <cstdio>

int main() {
    // A closed log, or a limit on the size of files, must not kill the run halfway.
    (void)std::signal(SIGPIPE, SIG_IGN);
    (void)std::signal(SIGXFSZ, SIG_IGN);

    // Write each line with one call, so that it stays whole in a shared log; only one longer than
    // the array takes several. With an array of its own, this neither allocates memory nor queries
    // the log, and so cannot fail.
    static std::array<char, 2048> line;
    (void)std::setvbuf(stderr, line.data(), _IOLBF, line.size());

    run_startup_sequence();
    return 0;
}
