#pragma once
// The steps that both profile writers share: ask for a name, confirm an overwrite, and write
// the record at the start of the file in PROFILES/.
#include "base/EditorSettings.h"

// Returns true when the profile was written; the caller then refreshes its profile lists.
bool SaveProfileAs(const EditorSettings& record);
