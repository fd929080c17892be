#include "tools/ToolRunner.h"

#include "base/qt/AppGlobals.h"
#include "components/cDialogs.h"

#include <QDir>
#include <QProcess>
#include <QStandardPaths>
#include <unistd.h>

namespace {
ToolRunner::Starter& TestStarter() {
    static ToolRunner::Starter s;
    return s;
}
} // namespace

void ToolRunner::SetStarterForTesting(Starter starter) { TestStarter() = std::move(starter); }

QString ToolRunner::CaptureFile() {
    static const QString path = QString::fromStdString(
        CaptureFilePath(qEnvironmentVariable("XDG_RUNTIME_DIR").toStdString(),
                        QDir::tempPath().toStdString(), ::getuid(), ::getpid()));
    return path;
}

bool ToolRunner::PrepareCapture() {
    std::string error;
    if (CreateCaptureFile(CaptureFile().toStdString(), error)) return true;
    cDialogs::Get().MsgBox("Unable to create the capture file " + CaptureFile() + ": " +
                               QString::fromStdString(error),
                           MsgButtons::OK, MsgIcon::Exclamation, AppTitle());
    return false;
}

QString ToolRunner::Terminal() {
    std::string setting = GetSetting(AppTitle(), "Settings", "Terminal").toStdString();
    return QString::fromStdString(ChooseTerminal(setting, [](std::string_view t) {
        return !QStandardPaths::findExecutable(QString::fromUtf8(t.data(), qsizetype(t.size())))
                    .isEmpty();
    }));
}

void ToolRunner::ChangeDirectory(const QString& dir) {
    if (!dir.isEmpty()) QDir::setCurrent(dir);
}

void ToolRunner::Run(ConsoleForm form, const QString& s, bool capture) {
    QString terminal;
    if (form != ConsoleForm::Bare) {
        terminal = Terminal();
        if (terminal.isEmpty()) {
            cDialogs::Get().MsgBox("No terminal emulator was found to run the command in. "
                                   "Name one in the setting \"Terminal\", or install xterm.",
                                   MsgButtons::OK, MsgIcon::Exclamation, AppTitle());
            return;
        }
    }
    ProcessLine p = ToolProcess(form, ToBytes(s), capture, ToBytes(CaptureFile()),
                                terminal.toStdString());
    if (TestStarter()) return TestStarter()(p, QDir::currentPath());
    QStringList args;
    for (const auto& a : p.args) args << FromBytes(a);
    // Start and forget: what a failing start returns is not looked at.
    QProcess::startDetached(QString::fromStdString(p.program), args, QDir::currentPath());
}
