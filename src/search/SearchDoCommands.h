#pragma once
// The search subcommands of kestrum-do: find, find-ex, find-next-menu, replace-all, replace,
// find-pattern, goto-line, goto-char and find-in-files.
#include "editor/cli/DoCommand.h"

#include <vector>

std::vector<DoCommand> SearchDoCommands();
