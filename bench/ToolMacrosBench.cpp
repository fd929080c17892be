// ToolMacros on a 4 KB command line, against copying the same line in the same run (the least
// any expansion costs). Target: at most 20 microseconds a call. Both the wall time and the
// thread's processor time are given: on a shared machine the first counts the time the
// benchmark waits for a processor.
#include "tools/core/ToolMacros.h"

#include <chrono>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <string>

namespace {
double ThreadMicros() {
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return double(t.tv_sec) * 1e6 + double(t.tv_nsec) / 1e3;
}

struct PerCall {
    double wall, cpu; // microseconds a call
};

template <class F> PerCall MicrosPerCall(int calls, F&& f) {
    auto t0 = std::chrono::steady_clock::now();
    const double c0 = ThreadMicros();
    for (int i = 0; i < calls; ++i) f();
    std::chrono::duration<double, std::micro> d = std::chrono::steady_clock::now() - t0;
    return {d.count() / calls, (ThreadMicros() - c0) / calls};
}
} // namespace

int main() {
    const std::string path = "/tmp/kestrum_macro_bench_source.c";
    std::ofstream(path) << "int main;\n";
    // Every macro several times among long plain parameters, as a long compile line has them.
    std::string line;
    const char* pieces[] = {"gcc -Wall -Wextra -O2 -I/usr/include/something/long ",
                            "%F ",
                            "%f ",
                            "-o %L ",
                            "%l.o ",
                            "-DNAME=%T ",
                            "%t ",
                            "%P%N ",
                            "%p%n ",
                            "50% done "};
    for (size_t i = 0; line.size() < 4096; ++i) line += pieces[i % std::size(pieces)];
    line.resize(4096);
    const int calls = 20000;
    volatile size_t sink = 0;
    PerCall copy = MicrosPerCall(calls, [&] {
        std::string c(line);
        sink = sink + c.size();
    });
    PerCall macros = MicrosPerCall(calls, [&] { sink = sink + ToolMacros(line, path).size(); });
    PerCall quoted = MicrosPerCall(calls, [&] {
        sink = sink + ToolMacros(line, path, MacroQuoting::QuoteFileAndLineEnd).size();
    });
    std::printf("ToolMacros, 4 KB line: %.2f us a call, processor time %.2f us (target <= 20 us)\n"
                "copy of the line: %.3f us, processor time %.3f us; ratio %.0f\n",
                macros.wall, macros.cpu, copy.wall, copy.cpu, macros.cpu / copy.cpu);
    std::printf("ToolMacros, quoting form: %.2f us a call, processor time %.2f us\n", quoted.wall,
                quoted.cpu);
    std::remove(path.c_str());
    return 0;
}
