#pragma once
// The print subcommand of kestrum-do: `print --pdf OUT [--profile NAME] FILE` prints FILE,
// coloured as a document window colours it when it opens, into the PDF file OUT.
#include "editor/cli/DoCommand.h"

#include <vector>

std::vector<DoCommand> PrintDoCommands();
