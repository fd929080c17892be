#pragma once
// Starts the processes of tool runs, detached: the editor never waits for them. Also owns the
// capture file of this instance and the choice of terminal.
#include "tools/core/ToolCommand.h"

#include <QString>
#include <functional>

class ToolRunner {
  public:
    // Starts the form of S; capture redirects to CaptureFile(). The process runs in the
    // current directory. A console form without any terminal on this system shows a message.
    static void Run(ConsoleForm form, const QString& s, bool capture);
    // The capture file of this instance (created with mode 0600 at the first capturing run).
    static QString CaptureFile();
    // Empties the capture file before a run; false with a message shown when it cannot be
    // made (a read-only or missing folder), so the output window says why it stays empty.
    static bool PrepareCapture();
    // The "Terminal" setting, else the first known terminal found on PATH.
    static QString Terminal();
    // Tests record the processes instead of starting them.
    using Starter = std::function<void(const ProcessLine&, const QString& workingDir)>;
    static void SetStarterForTesting(Starter starter);
    // Changes the current directory; a failing change is ignored, as the run commands want.
    static void ChangeDirectory(const QString& dir);
};
