#pragma once
// kestrum-do runs one of the editor's own commands on a file, without a window. Each
// subsystem offers its subcommands as rows of DoCommand that call the same command code as
// its menu items; the frame (app/cli) opens the document, runs the row and prints.
#include "components/cDialogs.h"

#include <deque>
#include <initializer_list>
#include <iosfwd>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

class frmDocument;

// A bad option or argument: the frame prints it on one line and exits with status 2.
struct DoUsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The dialog seam while kestrum-do runs: every message box is a line "message: TEXT" on the
// error stream, and questions take their answers from queues that the subcommand fills from
// its options.
class DoDialogs : public cDialogs {
  public:
    explicit DoDialogs(std::ostream& err) : err_(err) {}

    // Answers to boxes that ask (more than an OK button); once used up, `fallback`.
    std::deque<MsgResult> answers;
    MsgResult fallback = MsgResult::Cancel;
    // What InputPrompt returns, in turn; once used up, the empty string (Cancel).
    std::deque<QString> inputs;
    // Paths the file dialogs return, in turn; once used up, Cancel.
    std::deque<QString> files;

    MsgResult MsgBox(const QString& text, MsgButtons buttons, MsgIcon icon,
                     const QString& caption) override;
    std::optional<QString> FileDialog(const FileDialogOptions& options) override;
    std::optional<QFont> FontDialog(const QFont& initial, const QString& title) override;
    std::optional<QColor> ColorDialog(const QColor& initial) override;
    bool PrintDialog(QPrinter& printer) override;
    QString InputPrompt(const QString& prompt, const QString& title,
                        const QString& defaultText) override;

  private:
    std::ostream& err_;
};

// One run of a subcommand.
struct DoRun {
    // What followed the subcommand's name: its options, then its arguments. For a subcommand
    // that opens a document, FILE is taken off the end and stands in `file`.
    std::vector<std::string> args;
    std::string file;
    // FILE opened as the editor opens a document: the only one, and the active one.
    frmDocument* doc = nullptr;
    DoDialogs* dialogs = nullptr;
    std::ostream* out = nullptr;
    std::ostream* err = nullptr;
};

struct DoCommand {
    const char* name;
    bool opensDocument; // the last argument is FILE, opened before the row runs
    void (*run)(DoRun&);
};

// The options of a subcommand, which stand right after its name: flags without a value and
// options with one. The first argument that is no option ends them; an unknown "--..." before
// that is a usage error.
class DoOptions {
  public:
    DoOptions(const std::vector<std::string>& args, std::initializer_list<const char*> flags,
              std::initializer_list<const char*> valued = {});
    bool Has(const char* flag) const;
    std::optional<std::string> Value(const char* option) const;
    // The arguments after the options; a usage error unless there are exactly `count`.
    const std::vector<std::string>& Positional(size_t count) const;

  private:
    std::vector<std::string> flags_;
    std::vector<std::pair<std::string, std::string>> values_;
    std::vector<std::string> positional_;
};

// The document's bytes, exactly as the buffer holds them.
void WriteDocument(DoRun& run);
// "SELSTART SELLENGTH" and a line feed: the document's selection.
void WriteSelection(DoRun& run);
// A whole number of 1 or more, else a usage error naming the option.
int ParseCount(const std::string& text, const char* option);
