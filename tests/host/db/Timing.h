// Times for tests of speed: the best of several runs, since the machine does other things too.
#pragma once

#include <ctime>

#ifdef __SANITIZE_ADDRESS__
constexpr double kTimingSlack = 20.0; // checked code is many times slower
#else
constexpr double kTimingSlack = 1.0;
#endif

// Nanoseconds of one round.
template <class Work> double nanosecondsARound(int rounds, Work work) {
    double best = 1.0e300;
    for (int run = 0; run < 25; ++run) { // short runs: on a busy machine one of them is left alone
        const std::clock_t start = std::clock();
        for (int i = 0; i < rounds / 5; ++i)
            work();
        const double took = static_cast<double>(std::clock() - start) * (1.0e9 / CLOCKS_PER_SEC) / (rounds / 5);
        best = took < best ? took : best;
    }
    return best;
}

// Milliseconds of the processor for one run.
template <class Work> double processorMilliseconds(Work work) {
    const std::clock_t start = std::clock();
    work();
    return static_cast<double>(std::clock() - start) * (1.0e3 / CLOCKS_PER_SEC);
}
