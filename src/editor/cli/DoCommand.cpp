#include "editor/cli/DoCommand.h"

#include "editor/frmDocument.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <ostream>

MsgResult DoDialogs::MsgBox(const QString& text, MsgButtons buttons, MsgIcon, const QString&) {
    // One line per box: its line breaks are written as the two characters \n.
    QString line = text;
    line.replace(QLatin1String("\r\n"), QLatin1String("\\n"));
    line.replace(QLatin1Char('\n'), QLatin1String("\\n"));
    line.replace(QLatin1Char('\r'), QLatin1String("\\n"));
    QByteArray bytes = line.toUtf8();
    err_ << "message: ";
    err_.write(bytes.constData(), bytes.size());
    err_ << '\n';
    if (buttons == MsgButtons::OK) return MsgResult::OK;
    if (answers.empty()) return fallback;
    MsgResult r = answers.front();
    answers.pop_front();
    return r;
}

std::optional<QString> DoDialogs::FileDialog(const FileDialogOptions&) {
    if (files.empty()) return std::nullopt;
    QString f = files.front();
    files.pop_front();
    return f;
}

std::optional<QFont> DoDialogs::FontDialog(const QFont&, const QString&) { return std::nullopt; }
std::optional<QColor> DoDialogs::ColorDialog(const QColor&) { return std::nullopt; }
bool DoDialogs::PrintDialog(QPrinter&) { return false; }

QString DoDialogs::InputPrompt(const QString&, const QString&, const QString&) {
    if (inputs.empty()) return {};
    QString s = inputs.front();
    inputs.pop_front();
    return s;
}

DoOptions::DoOptions(const std::vector<std::string>& args, std::initializer_list<const char*> flags,
                     std::initializer_list<const char*> valued) {
    auto among = [](const std::string& a, std::initializer_list<const char*> names) {
        return std::any_of(names.begin(), names.end(), [&](const char* n) { return a == n; });
    };
    size_t i = 0;
    for (; i < args.size() && args[i].rfind("--", 0) == 0; ++i) {
        const std::string& a = args[i];
        if (among(a, flags)) {
            flags_.push_back(a);
        } else if (among(a, valued)) {
            if (i + 1 >= args.size()) throw DoUsageError("option " + a + " wants a value");
            values_.emplace_back(a, args[++i]);
        } else {
            throw DoUsageError("unknown option " + a);
        }
    }
    positional_.assign(args.begin() + std::ptrdiff_t(i), args.end());
}

bool DoOptions::Has(const char* flag) const {
    return std::find(flags_.begin(), flags_.end(), flag) != flags_.end();
}

std::optional<std::string> DoOptions::Value(const char* option) const {
    // The last one given counts.
    for (auto it = values_.rbegin(); it != values_.rend(); ++it)
        if (it->first == option) return it->second;
    return std::nullopt;
}

const std::vector<std::string>& DoOptions::Positional(size_t count) const {
    if (positional_.size() < count) throw DoUsageError("missing argument");
    if (positional_.size() > count) throw DoUsageError("extra argument: " + positional_[count]);
    return positional_;
}

void WriteDocument(DoRun& run) {
    std::string_view text = run.doc->rtfText->TextView();
    run.out->write(text.data(), std::streamsize(text.size()));
}

void WriteSelection(DoRun& run) {
    *run.out << run.doc->rtfText->SelStart() << ' ' << run.doc->rtfText->SelLength() << '\n';
}

int ParseCount(const std::string& text, const char* option) {
    int n = 0;
    auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), n);
    if (ec != std::errc() || end != text.data() + text.size() || n < 1)
        throw DoUsageError(std::string(option) + " wants a whole number of 1 or more");
    return n;
}
