#pragma once
// A cDialogs that answers from a script instead of showing anything, and records what the
// program asked. An unexpected question fails the test and is answered with Cancel.
#include "components/cDialogs.h"

#include <deque>
#include <optional>
#include <vector>

class ScriptedDialogs : public cDialogs {
  public:
    struct Question {
        Question(QString k, QString t = {}, QString c = {}, MsgButtons b = MsgButtons::OK,
                 FileDialogOptions f = {})
            : kind(std::move(k)), text(std::move(t)), caption(std::move(c)), buttons(b),
              file(std::move(f)) {}
        QString kind; // "MsgBox", "File", "Font", "Color", "Print", "Input"
        QString text; // message text, dialog title or prompt
        QString caption;
        MsgButtons buttons = MsgButtons::OK;
        FileDialogOptions file;
    };

    ScriptedDialogs() { cDialogs::Install(this); }
    ~ScriptedDialogs() override { cDialogs::Install(nullptr); }

    ScriptedDialogs& AnswerMsgBox(MsgResult r) { return Push(Answer("MsgBox", r)); }
    ScriptedDialogs& AnswerFile(std::optional<QString> path) { return Push(Answer("File", path)); }
    ScriptedDialogs& AnswerInput(const QString& text) { return Push(Answer("Input", text)); }
    ScriptedDialogs& AnswerColor(std::optional<QColor> color) {
        Answer a("Color");
        a.color = color;
        return Push(std::move(a));
    }
    ScriptedDialogs& AnswerPrint(bool ok) {
        Answer a("Print");
        a.ok = ok;
        return Push(std::move(a));
    }

    std::vector<Question> asked;
    // Answers still waiting; a test usually expects none at its end.
    size_t Pending() const { return answers_.size(); }

    MsgResult MsgBox(const QString& text, MsgButtons buttons, MsgIcon icon,
                     const QString& caption) override;
    std::optional<QString> FileDialog(const FileDialogOptions& options) override;
    std::optional<QFont> FontDialog(const QFont& initial, const QString& title) override;
    std::optional<QColor> ColorDialog(const QColor& initial) override;
    bool PrintDialog(QPrinter& printer) override;
    QString InputPrompt(const QString& prompt, const QString& title, const QString& def) override;

  private:
    struct Answer {
        explicit Answer(QString k, MsgResult m = MsgResult::Cancel) : kind(std::move(k)), msg(m) {}
        Answer(QString k, std::optional<QString> p) : kind(std::move(k)), path(std::move(p)) {}
        QString kind;
        MsgResult msg = MsgResult::Cancel;
        std::optional<QString> path;
        std::optional<QColor> color;
        bool ok = false;
    };
    ScriptedDialogs& Push(Answer a) {
        answers_.push_back(std::move(a));
        return *this;
    }
    std::optional<Answer> Next(const QString& kind, const Question& q);
    std::deque<Answer> answers_;
};
