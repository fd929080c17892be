#include "editor/core/LineCommand.h"

#include "base/TextLines.h"

#include <algorithm>

namespace {
struct Line {
    int64_t start, length; // length without the line end
};

// The line that holds pos, without its line end.
Line LineAt(std::string_view t, int64_t pos) {
    TextRange r = LineAround(t, pos);
    return {r.start, r.length};
}

// Where the next line starts, or -1 behind the last one.
int64_t NextLineStart(std::string_view t, const Line& l) {
    int64_t e = l.start + l.length;
    int64_t n = int64_t(t.size());
    if (e >= n) return -1;
    if (t[size_t(e)] == '\r' && e + 1 < n && t[size_t(e + 1)] == '\n') return e + 2;
    return e + 1;
}
} // namespace

std::string IndentUnit(bool realTabs, int tabWidth) {
    return realTabs ? std::string("\t") : std::string(size_t(std::max(tabWidth, 0)), ' ');
}

LineCommandResult LineCommand(std::string_view t, int64_t selStart, int64_t selLength,
                              LineStep step, std::string_view unit) {
    int64_t n = int64_t(t.size());
    selStart = std::clamp<int64_t>(selStart, 0, n);
    selLength = std::clamp<int64_t>(selLength, 0, n - selStart);
    // A selection that ends at the beginning of a line does not touch that line.
    if (selLength >= 2 && t.substr(size_t(selStart + selLength - 2), 2) == "\r\n") selLength -= 2;
    int64_t end = selStart + selLength;

    LineCommandResult r;
    // At most one edit a line: sized once, the list is never copied while it grows.
    r.edits.reserve(size_t(std::count(t.begin() + selStart, t.begin() + end, '\n')) + 1);
    Line line = LineAt(t, selStart);
    const Line last = LineAt(t, end);
    int64_t shift = 0; // growth of the text before the current line
    int64_t firstStartAfter = -1;
    for (;;) {
        std::string_view body = t.substr(size_t(line.start), size_t(line.length));
        TextEdit e{line.start, 0, {}};
        bool edit = true;
        switch (step) {
        case LineStep::Indent:
        case LineStep::Prefix: e.text = std::string(unit); break;
        case LineStep::Unindent:
            // One whole unit or nothing; the comparison may run over the line end.
            edit = !unit.empty() && t.substr(size_t(line.start), unit.size()) == unit;
            e.length = int64_t(unit.size());
            break;
        case LineStep::TrimTrailing:
        case LineStep::TrimPreceding:
        case LineStep::Trim: {
            std::string_view s = body;
            if (step != LineStep::TrimTrailing)
                while (!s.empty() && s.front() == ' ') s.remove_prefix(1);
            if (step != LineStep::TrimPreceding)
                while (!s.empty() && s.back() == ' ') s.remove_suffix(1);
            e.length = line.length;
            e.text = std::string(s);
            edit = e.text != body;
            break;
        }
        }
        const int64_t startAfter = line.start + shift;
        if (firstStartAfter < 0) firstStartAfter = startAfter;
        int64_t lineLengthAfter = line.length;
        if (edit) {
            shift += int64_t(e.text.size()) - e.length;
            // A unit removed over the line end shortens the text past this line only.
            lineLengthAfter += int64_t(e.text.size()) - std::min(e.length, line.length);
            r.edits.push_back(std::move(e));
        }
        if (line.start == last.start) {
            r.selStart = firstStartAfter;
            r.selLength = startAfter + std::max<int64_t>(lineLengthAfter, 0) - firstStartAfter;
            break;
        }
        int64_t next = NextLineStart(t, line);
        if (next < 0) break;
        line = LineAt(t, next);
    }
    return r;
}
