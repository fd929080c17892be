// kestrum-send WORD [ARGUMENT]: hands a request to the running editor the way a second start
// of the editor does. The request is WORD followed directly by ARGUMENT; without ARGUMENT,
// and with standard input not a terminal, by all of standard input, so that
// `ls | kestrum-send MAKEFILE` opens the listing in a new document.
#include "app/SingleInstance.h"

#include <QCoreApplication>
#include <cstdio>
#include <unistd.h>

namespace {
const char* const kUsage =
    "usage: kestrum-send WORD [ARGUMENT]\n"
    "Hands WORD followed by ARGUMENT (or by standard input) to the running Kestrum editor.\n"
    "  LOADFILE PATH   open the file in a new document (a relative PATH is taken from here)\n"
    "  MAKEFILE TEXT   open a new document holding the text\n"
    "  ABORTCMD        bring the editor's window back\n";

// All of standard input, or nothing when it exceeds the limit.
bool ReadAll(std::FILE* in, qint64 limit, QByteArray& out) {
    char chunk[65536];
    size_t n;
    while ((n = std::fread(chunk, 1, sizeof chunk, in)) > 0) {
        if (out.size() + qint64(n) > limit) return false;
        out.append(chunk, qsizetype(n));
    }
    return !std::ferror(in);
}
} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    if (argc < 2 || argc > 3 || argv[1][0] == '\0') {
        std::fputs(kUsage, stderr);
        return 2;
    }
    // The arguments as the bytes the system gave: a file name or a text that is not UTF-8
    // reaches the editor unchanged.
    const QByteArray word = argv[1];
    QByteArray request;
    if (argc == 3) {
        request = word == "LOADFILE" ? SingleInstance::LoadFileRequest(argv[2]) : word + argv[2];
    } else {
        request = word;
        if (!::isatty(STDIN_FILENO)) {
            QByteArray input;
            if (!ReadAll(stdin, SingleInstance::kMaxRequest - request.size(), input)) {
                std::fputs("kestrum-send: standard input could not be read or is larger than "
                           "256 MB\n",
                           stderr);
                return 1;
            }
            request += input;
        }
    }
    QString error;
    // Long enough for the editor to load a large file before it acknowledges.
    if (!SingleInstance::SendToProcess(QStringLiteral("Kestrum"), request, 60000, &error)) {
        std::fprintf(stderr, "kestrum-send: %s\n", qPrintable(error));
        return 1;
    }
    return 0;
}
