#pragma once
// The state of the Caps Lock and Num Lock lights, for the status bar.
#include <optional>

struct KeyboardLocks {
    bool caps = false;
    bool num = false;
};

// The lights as the X server keeps them; nothing where they cannot be read (another
// windowing system, a headless run, or a build without the X keyboard extension).
std::optional<KeyboardLocks> ReadKeyboardLocks();
