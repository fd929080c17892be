// kestrum-do: the editor's own commands on a file, without a window.
#include "app/cli/DoFrame.h"
#include "filetools/FileToolsDoCommands.h"
#include "printing/PrintDoCommands.h"
#include "search/SearchDoCommands.h"
#include "tools/ToolDoCommands.h"
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
    for (DoCommand& c : PrintDoCommands()) all.push_back(std::move(c));
    for (DoCommand& c : FileToolsDoCommands()) all.push_back(std::move(c));
    for (DoCommand& c : ToolDoCommands()) all.push_back(std::move(c));
    return all;
}

QtMessageHandler g_qtHandler = nullptr;

// Scripts read stderr line by line (a usage error is one line). Qt's note that it falls back
// to a runtime folder of its own, written on every start where XDG_RUNTIME_DIR is unset, says
// nothing about the run, so it is dropped, as is the offscreen platform's note on a window shown
// (the results window of `compare`); every other Qt message goes through.
void FilterQtMessages(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (type == QtWarningMsg && text.startsWith(QLatin1String("QStandardPaths: XDG_RUNTIME_DIR")))
        return;
    if (text == QLatin1String("This plugin does not support propagateSizeHints()")) return;
    g_qtHandler(type, context, text);
}

} // namespace

int main(int argc, char** argv) {
    // No display is needed: the documents are never shown.
    if (!std::getenv("QT_QPA_PLATFORM")) setenv("QT_QPA_PLATFORM", "offscreen", 1);
    g_qtHandler = qInstallMessageHandler(&FilterQtMessages);
    int qtArgc = 1;
    QApplication app(qtArgc, argv);
    std::vector<std::string> args(argv + 1, argv + argc);
    std::vector<DoCommand> table = AllCommands();
    std::ios::sync_with_stdio(false);
    return RunKestrumDo(args, table, std::cout, std::cerr);
}
