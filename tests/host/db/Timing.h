// Times for tests of speed: the best of several runs, since the machine does other things too.
#pragma once

#include <chrono>

#ifdef __SANITIZE_ADDRESS__
constexpr double kTimingSlack = 20.0; // checked code is many times slower
#else
constexpr double kTimingSlack = 1.0;
#endif

// Nanoseconds of one round.
template <class Work> double nanosecondsARound(int rounds, Work work) {
    double best = 1.0e300;
    for (int run = 0; run < 5; ++run) {
        const auto start = std::chrono::steady_clock::now();
        for (int i = 0; i < rounds; ++i)
            work();
        const std::chrono::duration<double, std::nano> took = std::chrono::steady_clock::now() - start;
        best = took.count() / rounds < best ? took.count() / rounds : best;
    }
    return best;
}
