// Deferred colours: a control that takes a store of colours lazily must end up, after any
// sequence of edits, paints and reads, with the colours of a control that was given the same
// colours at once.
#include "editor/RichEdit.h"
#include "support/TempDir.h"

#include <QApplication>
#include <QTest>
#include <algorithm>
#include <gtest/gtest.h>
#include <memory>

namespace {

// About 300 KB of numbered lines: several chunks of store, and text on both sides of it.
std::string Document() {
    std::string t;
    for (int i = 0; t.size() < 300000; ++i) t += "line " + std::to_string(i) + ": some words\r\n";
    return t;
}
const std::string kText = Document();
constexpr int64_t kStoreStart = 3000, kStoreEnd = 240000;

// Slots that change every few positions, different for each seed.
std::string Pattern(int64_t from, int64_t n, int seed) {
    std::string s(size_t(n), '\0');
    for (int64_t i = 0; i < n; ++i) s[size_t(i)] = char((from + i) / (5 + seed) % kColorSlotCount);
    return s;
}

// The styles the control holds, read around the store.
std::string RawStyles(const RichEdit& e, int64_t from, int64_t n) {
    std::string s;
    for (int64_t i = from; i < from + n; ++i)
        s += char(e.SendScintilla(QsciScintillaBase::SCI_GETSTYLEAT, i));
    return s;
}

// clang-format off
enum class Op {
    Insert, Delete, Undo, Redo, Paint, Fill, // edits and paints at pos, len bytes long
    Colourise, Show,                         // up to, or from, the line pos
    Read,                                    // compares the slots at pos.. pos + len - 1
    SetText, Load, Copy                      // the same text anew; a duplicate window
};
// clang-format on
struct Step {
    Op op;
    int64_t pos = 0, len = 0;
};
struct Case {
    const char* name;
    std::vector<Step> steps;
};

// Two controls over the same text with the same colours: one given them at once, the other
// with the stretch kStoreStart..kStoreEnd deferred.
struct StyledPair {
    TempDir dir;
    std::unique_ptr<RichEdit> eager = std::make_unique<RichEdit>(),
                              deferred = std::make_unique<RichEdit>();

    StyledPair() {
        for (RichEdit* e : {eager.get(), deferred.get()}) {
            e->resize(400, 300);
            e->SetText(kText);
            e->PaintStyles(0, Pattern(0, kStoreStart, 0));
            e->SendScintilla(QsciScintillaBase::SCI_EMPTYUNDOBUFFER);
        }
        std::string store = Pattern(kStoreStart, kStoreEnd - kStoreStart, 1);
        eager->PaintStyles(kStoreStart, store);
        deferred->DeferStyles(kStoreStart, std::vector<uint8_t>(store.begin(), store.end()));
    }

    void Apply(std::unique_ptr<RichEdit>& e, const Step& s) {
        using B = QsciScintillaBase;
        // clang-format off
        switch (s.op) {
        case Op::Insert:
            e->SendScintilla(B::SCI_INSERTTEXT, s.pos, std::string(size_t(s.len), 'x').c_str());
            break;
        case Op::Delete: e->SendScintilla(B::SCI_DELETERANGE, s.pos, s.len); break;
        case Op::Undo: e->undo(); break;
        case Op::Redo: e->redo(); break;
        case Op::Paint: e->PaintStyles(s.pos, Pattern(s.pos, s.len, 2)); break;
        case Op::Fill: e->PaintRange(s.pos, s.len, ColorSlot::Delimiter2); break;
        case Op::Colourise:
            e->SendScintilla(B::SCI_COLOURISE, 0UL, e->LineIndex(int(s.pos)));
            break;
        case Op::Show:
            e->SetFirstVisibleLine(int(s.pos));
            e->show();
            ASSERT_TRUE(QTest::qWaitForWindowExposed(e.get()));
            QApplication::processEvents();
            break;
        case Op::Read: break; // by the caller, on both controls
        case Op::SetText: e->SetText(kText); break;
        case Op::Load: {
            QString err;
            ASSERT_TRUE(e->LoadFile(QString::fromStdString(dir.write("in.txt", kText)), 1, &err));
            break;
        }
        case Op::Copy: {
            auto copy = std::make_unique<RichEdit>();
            copy->resize(400, 300);
            copy->CopyFrom(*e);
            e = std::move(copy);
            break;
        }
        }
        // clang-format on
    }
};

} // namespace

TEST(DeferredStylesTest, EveryPositionEndsWithTheColoursOfAnEagerlyStyledControl) {
    const int64_t S = kStoreStart, E = kStoreEnd;
    const std::vector<Case> cases = {
        {"read in pieces",
         {{Op::Read, S - 2, 10}, {Op::Read, S + 100000, 10}, {Op::Read, E - 5, 10}}},
        {"inserts", {{Op::Insert, 10, 7}, {Op::Insert, S + 150000, 9}, {Op::Insert, E + 100, 4}}},
        {"inserts at the ends", {{Op::Insert, S, 5}, {Op::Insert, E + 5, 4}}},
        {"deletes", {{Op::Delete, 100, 50}, {Op::Delete, S + 70000, 1000}}},
        {"deletes across the ends", {{Op::Delete, S - 20, 60}, {Op::Delete, E - 70, 100}}},
        {"delete all of it", {{Op::Delete, S - 1, E - S + 2}, {Op::Insert, S, 3}}},
        {"undo and redo",
         {{Op::Delete, S + 5000, 300},
          {Op::Insert, 50, 3},
          {Op::Insert, S + 90000, 2},
          {Op::Undo},
          {Op::Undo},
          {Op::Undo},
          {Op::Redo},
          {Op::Redo}}},
        {"paints win over the store",
         {{Op::Paint, S + 1000, 70000},
          {Op::Fill, E - 10, 40},
          {Op::Paint, S - 10, 20},
          {Op::Insert, S + 500, 3},
          {Op::Read, S + 990, 20}}},
        {"shown, then edited",
         {{Op::Show, 4000},
          {Op::Insert, S + 200, 4},
          {Op::Delete, S + 60000, 10},
          {Op::Show, 9000}}},
        {"coloured by the control",
         {{Op::Colourise, 100}, {Op::Delete, 20, 10}, {Op::Colourise, 6000}, {Op::Insert, S, 1}}},
        {"loaded anew", {{Op::Load}, {Op::Paint, 0, 100}}},
        {"text replaced", {{Op::SetText}}},
        {"duplicated", {{Op::Read, S + 80000, 1}, {Op::Copy}, {Op::Insert, S + 90000, 5}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        StyledPair fresh;
        for (const Step& s : c.steps) {
            fresh.Apply(fresh.eager, s);
            fresh.Apply(fresh.deferred, s);
            for (int64_t i = s.pos; s.op == Op::Read && i < s.pos + s.len; ++i)
                ASSERT_EQ(fresh.deferred->SlotAt(i), fresh.eager->SlotAt(i)) << "at " << i;
        }
        ASSERT_TRUE(fresh.deferred->Text() == fresh.eager->Text());
        std::string want = fresh.eager->Styles(0, fresh.eager->TextLength());
        std::string got = fresh.deferred->Styles(0, fresh.deferred->TextLength());
        EXPECT_TRUE(got == want) << "first difference at "
                                 << std::mismatch(want.begin(), want.end(), got.begin()).first -
                                        want.begin();
        // Once all was read, the control itself holds every colour.
        EXPECT_TRUE(RawStyles(*fresh.deferred, 0, int64_t(want.size())) == want);
    }
}

TEST(DeferredStylesTest, TheControlTakesTheColoursOfWhatItShowsAndNoMore) {
    StyledPair pair;
    RichEdit& e = *pair.deferred;
    const std::string want = pair.eager->Styles(0, pair.eager->TextLength());
    const int64_t screen = e.LineIndex(100);
    ASSERT_NE(RawStyles(e, kStoreStart, screen - kStoreStart),
              want.substr(kStoreStart, screen - kStoreStart));
    e.SendScintilla(QsciScintillaBase::SCI_COLOURISE, 0UL, screen);
    EXPECT_EQ(RawStyles(e, 0, screen), want.substr(0, screen));
    const int64_t tail = kStoreEnd - 100;
    EXPECT_NE(RawStyles(e, tail, 100), want.substr(size_t(tail), 100)); // still deferred

    // Lines shown deep inside the store are styled as they are painted, also after a paint
    // behind the store moved the control's end of styled text past them.
    e.PaintRange(e.TextLength() - 10, 10, ColorSlot::Comment);
    int line = e.LineFromChar(kStoreEnd - 5000);
    pair.Apply(pair.deferred, {Op::Show, line});
    int64_t at = e.LineIndex(line);
    EXPECT_EQ(RawStyles(e, at, 500), want.substr(size_t(at), 500));
}
