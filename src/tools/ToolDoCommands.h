#pragma once
// The tools subcommand of kestrum-do: expand-macros, the line a tool run would start.
#include "editor/cli/DoCommand.h"

#include <vector>

std::vector<DoCommand> ToolDoCommands();
