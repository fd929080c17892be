// ToolMacros on a 4 KB command line, against copying the same line in the same run (the least
// any expansion costs). Target: at most 20 microseconds a call.
#include "tools/core/ToolMacros.h"

#include <chrono>
#include <cstdio>
#include <fstream>
#include <string>

namespace {
template <class F> double MicrosPerCall(int calls, F&& f) {
    auto t0 = std::chrono::steady_clock::now();
    for (int i = 0; i < calls; ++i) f();
    std::chrono::duration<double, std::micro> d = std::chrono::steady_clock::now() - t0;
    return d.count() / calls;
}
} // namespace

int main() {
    const std::string path = "/tmp/kestrum_macro_bench_source.c";
    std::ofstream(path) << "int main;\n";
    // Every macro several times among long plain parameters, as a long compile line has them.
    std::string line;
    const char* pieces[] = {"gcc -Wall -Wextra -O2 -I/usr/include/something/long ", "%F ", "%f ",
                            "-o %L ", "%l.o ", "-DNAME=%T ", "%t ", "%P%N ", "%p%n ", "50% done "};
    for (size_t i = 0; line.size() < 4096; ++i) line += pieces[i % std::size(pieces)];
    line.resize(4096);
    const int calls = 20000;
    volatile size_t sink = 0;
    double copy = MicrosPerCall(calls, [&] {
        std::string c(line);
        sink = sink + c.size();
    });
    double macros = MicrosPerCall(calls, [&] { sink = sink + ToolMacros(line, path).size(); });
    double quoted = MicrosPerCall(calls, [&] {
        sink = sink + ToolMacros(line, path, MacroQuoting::QuoteFileAndLineEnd).size();
    });
    std::printf("ToolMacros, 4 KB line: %.2f us a call (target <= 20 us); copy of the line: "
                "%.3f us; ratio %.0f\n",
                macros, copy, macros / copy);
    std::printf("ToolMacros, quoting form: %.2f us a call\n", quoted);
    std::remove(path.c_str());
    return 0;
}
