#include "support/ScriptedDialogs.h"

#include <gtest/gtest.h>

std::optional<ScriptedDialogs::Answer> ScriptedDialogs::Next(const QString& kind,
                                                             const Question& q) {
    asked.push_back(q);
    if (answers_.empty() || answers_.front().kind != kind) {
        ADD_FAILURE() << "unexpected " << kind.toStdString() << ": " << q.text.toStdString() << " ["
                      << q.caption.toStdString() << "]";
        return std::nullopt;
    }
    Answer a = answers_.front();
    answers_.pop_front();
    return a;
}

MsgResult ScriptedDialogs::MsgBox(const QString& text, MsgButtons buttons, MsgIcon,
                                  const QString& caption) {
    Question q{"MsgBox", text, caption, buttons};
    auto a = Next("MsgBox", q);
    return a ? a->msg : MsgResult::Cancel;
}

std::optional<QString> ScriptedDialogs::FileDialog(const FileDialogOptions& o) {
    Question q{"File", o.title, {}, MsgButtons::OK, o};
    auto a = Next("File", q);
    return a ? a->path : std::nullopt;
}

// No test answers a font dialog: one asked for is recorded and fails the test.
std::optional<QFont> ScriptedDialogs::FontDialog(const QFont&, const QString& title) {
    Next("Font", {"Font", title});
    return std::nullopt;
}

std::optional<QColor> ScriptedDialogs::ColorDialog(const QColor&) {
    auto a = Next("Color", {"Color"});
    return a ? a->color : std::nullopt;
}

bool ScriptedDialogs::PrintDialog(QPrinter&) {
    auto a = Next("Print", {"Print"});
    return a && a->ok;
}

QString ScriptedDialogs::InputPrompt(const QString& prompt, const QString& title, const QString&) {
    auto a = Next("Input", {"Input", prompt, title});
    return a && a->path ? *a->path : QString();
}
