#pragma once
// State of the find commands, kept for the run and never written to the settings.
#include <QString>
#include <cstdint>

// Where the next Find Next of a find dialog starts. Its meaning is the last writer's:
// frmFind keeps a 0-based offset (-1 after a failure), frmFindEx and frmFindPattern a
// 1-based index; no conversion is made between them.
int32_t& SearchPosition();
// The last text frmFind searched for, found or not; the menu's Find Next repeats it.
QString& LastSearchText();
