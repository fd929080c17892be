#pragma once
// The frame of kestrum-do shared by every subcommand: the command line, the document opened
// as the editor opens one, the dialog seam that prints boxes, the output and the exit status.
#include "editor/cli/DoCommand.h"

#include <iosfwd>
#include <span>
#include <string>
#include <vector>

// Runs `args` (the command line without the program's name) against `table`. Writes the
// result to `out` only when the run succeeds; returns the exit status (0, or 2 for a usage
// error or an unreadable FILE). A QApplication must exist.
int RunKestrumDo(const std::vector<std::string>& args, std::span<const DoCommand> table,
                 std::ostream& out, std::ostream& err);
