#pragma once
// kestrum-do's file tools: `compare`, which runs the Compare Files dialog's OK button and
// prints the rows of the results window it opens.
#include "editor/cli/DoCommand.h"

#include <vector>

std::vector<DoCommand> FileToolsDoCommands();
