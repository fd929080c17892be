// kestrum-do: the editor's own commands on a file, without a window.
#include "app/cli/DoFrame.h"
#include "search/SearchDoCommands.h"
#include "transforms/TransformDoCommands.h"

#include <QApplication>
#include <cstdlib>
#include <iostream>

namespace {

// Every subsystem's subcommands.
std::vector<DoCommand> AllCommands() {
    std::vector<DoCommand> all;
    for (DoCommand& c : SearchDoCommands()) all.push_back(std::move(c));
    for (DoCommand& c : TransformDoCommands()) all.push_back(std::move(c));
    return all;
}

} // namespace

int main(int argc, char** argv) {
    // No display is needed: the documents are never shown.
    if (!std::getenv("QT_QPA_PLATFORM")) setenv("QT_QPA_PLATFORM", "offscreen", 1);
    int qtArgc = 1;
    QApplication app(qtArgc, argv);
    std::vector<std::string> args(argv + 1, argv + argc);
    std::vector<DoCommand> table = AllCommands();
    std::ios::sync_with_stdio(false);
    return RunKestrumDo(args, table, std::cout, std::cerr);
}
