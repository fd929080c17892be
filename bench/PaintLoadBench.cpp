// Loading a 100 MB file as the painter and the editor's buffer take it (bytes kept, line ends
// made CR LF), against `cat FILE >/dev/null` of the same file in the same run; target at
// most 2 times. The file is written with LF line ends, so that every line end is converted,
// and read once before timing so that both sides read from the page cache. The old way
// (the whole file into a zeroed buffer, then converted into a second one) for reference.
#include "BenchSource.h"
#include "base/MiscSubs.h"
#include "base/TextCodec.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <unistd.h>

namespace {
double Seconds(const std::chrono::steady_clock::time_point& since) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - since).count();
}

template <class F> double Best(int runs, F&& f) {
    double best = 1e9;
    for (int i = 0; i < runs; ++i) {
        auto t = std::chrono::steady_clock::now();
        f();
        best = std::min(best, Seconds(t));
    }
    return best;
}
} // namespace

int main() {
    char dir[] = "/tmp/kestrum-paintload-XXXXXX";
    if (!::mkdtemp(dir)) return 1;
    const std::string file = std::string(dir) + "/big.c";
    {
        std::string lf = StripCr(bench::GenerateCSource(100u << 20));
        std::ofstream(file, std::ios::binary).write(lf.data(), std::streamsize(lf.size()));
    }
    const std::string cat = "cat '" + file + "' >/dev/null";
    if (std::system(cat.c_str()) != 0) return 1; // warm the page cache

    size_t loaded = 0;
    const double catTime = Best(5, [&] { (void)std::system(cat.c_str()); });
    const double loadTime = Best(5, [&] {
        std::string text, error;
        if (!ReadFileCrLf(file, text, error)) std::abort();
        loaded = text.size();
    });
    const double oldTime = Best(3, [&] {
        std::string bytes, error;
        if (!ReadWholeFile(file, bytes, error)) std::abort();
        std::string text = ToCrLf(bytes);
        if (text.size() != loaded) std::abort();
    });
    std::printf("100 MB file, LF line ends, %zu bytes loaded (best of 5)\n", loaded);
    std::printf("cat >/dev/null:           %7.1f ms\n", catTime * 1e3);
    std::printf("ReadFileCrLf:             %7.1f ms  ratio %.2f (target <= 2)\n", loadTime * 1e3,
                loadTime / catTime);
    std::printf("ReadWholeFile + ToCrLf:   %7.1f ms  ratio %.2f (for reference)\n",
                oldTime * 1e3, oldTime / catTime);
    ::unlink(file.c_str());
    ::rmdir(dir);
    return loadTime <= 2 * catTime ? 0 : 3;
}
