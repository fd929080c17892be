#pragma once
// kestrum-do's text transforms and HTML layouts: each row runs the same TransformCommands
// routine as its Format or Edit menu item.
#include "editor/cli/DoCommand.h"

#include <vector>

std::vector<DoCommand> TransformDoCommands();
