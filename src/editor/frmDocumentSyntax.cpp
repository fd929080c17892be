// The document window's syntax profile and its colouring passes.
#include "editor/frmDocument.h"

#include "base/qt/AppGlobals.h"
#include "base/qt/DataPaths.h"
#include "components/cDialogs.h"
#include "editor/DocumentHost.h"
#include "editor/StyleStretches.h"
#include "editor/core/LineCommand.h"
#include "profiles/core/ProfileFile.h"
#include "profiles/core/SyntaxAssociations.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QPointer>

// ---------------------------------------------------------------- syntax

void frmDocument::SetSyntax() {
    if (syntaxLoaded_) return;
    const EditorSettings& global = g_EditorSettings();
    SyntaxChoice choice;
    try {
        choice = ResolveSyntax(Store(), ToBytes(AppTitle()), ToBytes(Tag));
    } catch (const std::exception&) {
        choice = {};
    }
    if (choice.useGlobal) {
        settings_ = global;
        return;
    }
    const QString relative = "PROFILES/" + FromBytes(choice.profile);
    QString path = DataFileToRead(relative);
    // A missing profile file is created: the window then simply has no keywords. A folder
    // that cannot be reached is an error; installed, the user's own folder is made first. A
    // shipped profile is only read, since an installed program's folder is not writable.
    const bool exists = QFileInfo::exists(path);
    const QFileInfo profileFolder(QFileInfo(path).path());
    if (!exists && (ProgramDataFolders().Installed() ||
                    (profileFolder.isDir() && !profileFolder.isWritable())))
        path = DataFileToWrite(relative);
    const QString folder = QFileInfo(path).path();
    QFile f(path);
    bool opened = QFileInfo(folder).isDir() && !QFileInfo(path).isDir() &&
                  f.open(exists ? QIODevice::ReadOnly : QIODevice::ReadWrite);
    if (!opened) {
        cDialogs::Get().MsgBox(
            "The Syntax Profile associated with this file's extension was not found. This "
            "window's syntax highlighting is deactivated.\n\nTo remedy this problem, fix the "
            "settings in the 'Language Recognition' dialog, in the Preferences menu.",
            MsgButtons::OK, MsgIcon::Exclamation, "Error");
        return;
    }
    QByteArray bytes = f.readAll();
    f.close();
    settings_ = EditorSettings{};
    ReadProfile(std::string_view(bytes.constData(), size_t(bytes.size())), settings_);
    settings_.WordWrap = global.WordWrap;
    syntaxLoaded_ = true;
    syntaxProfile_ = FromBytes(choice.profile);
    if (Host().ActiveDocument() == this) Host().ShowSyntaxProfile(syntaxProfile_);
}

// ---------------------------------------------------------------- colouring

namespace {
// Documents larger than this are hidden during a whole-document pass, which shows the
// progress label; smaller ones are merely kept from repainting.
constexpr int64_t kHideWhileColouring = 2 << 20;
// Painted stretches from this length on are deferred rather than written into the control.
constexpr int64_t kDeferStylesFrom = 64 << 10;
} // namespace

PassResult frmDocument::RunPainter(const std::function<PassResult(PaintContext&)>& pass,
                                   int64_t viewStart, bool showProgress, bool wholeText) {
    // The pass works on copies: the event loop runs inside it, and should this window go
    // away meanwhile, nothing may be written into it afterwards.
    QPointer<frmDocument> self(this);
    PaintFlags flags{codingInProgress_, ChangedHighLight};
    EditorSettings settings = settings_;
    // The painter never reads in front of the range it colours, so it sees the text from the
    // range's start on, and its positions count from there. A whole text's colours go into
    // the control stretch by stretch; a range's are collected and written at the end.
    SlotBuffer painted;
    std::optional<StyleStretches> stretches;
    if (wholeText) stretches.emplace(*rtfText, viewStart, rtfText->TextLength() - viewStart);
    const quint64 version = rtfText->Version();
    PaintContext ctx{rtfText->TextViewFrom(viewStart),
                     settings,
                     flags,
                     stretches ? static_cast<PaintTarget&>(*stretches) : painted,
                     nullptr,
                     nullptr};
    if (stretches) ctx.StretchBytes = stretches->StretchBytes(ctx.StretchBytes);
    ctx.Yield = [self, version] {
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        return self && !self->unloaded_ && self->rtfText->Version() == version;
    };
    if (showProgress) {
        ctx.Progress = [self](std::string_view caption) {
            if (!self) return;
            self->lblColors->setText(QString::fromUtf8(caption.data(), qsizetype(caption.size())));
            self->lblColors->adjustSize();
            self->Form_Resize();
            self->lblColors->repaint();
        };
    }
    // The flag is set while the pass runs, so that the guards hold during its yields.
    codingInProgress_ = true;
    PassResult r = pass(ctx);
    if (!self) return PassResult::Aborted;
    if (r != PassResult::Aborted && rtfText->Version() == version && stretches) {
        stretches->Apply();
    } else if (r != PassResult::Aborted && rtfText->Version() == version) {
        // Long stretches are handed over unwritten: the control takes their colours as it
        // shows them, and writing them all would cost more than painting them. One that is
        // the whole of what was painted goes over without a copy.
        bool takeAll = false;
        painted.ForEachSpan([&](int64_t start, const uint8_t* p, int64_t n) {
            if (n < kDeferStylesFrom)
                rtfText->PaintStyles(viewStart + start,
                                     std::string_view(reinterpret_cast<const char*>(p), size_t(n)));
            else if (n == painted.Size())
                takeAll = true;
            else
                rtfText->DeferStyles(viewStart + start, std::vector<uint8_t>(p, p + n));
        });
        if (takeAll) rtfText->DeferStyles(viewStart + painted.Base(), painted.TakeBytes());
    }
    settings_.Delimiters = settings.Delimiters; // classes clamped by the coders stay so
    codingInProgress_ = flags.CodingInProgress;
    ChangedHighLight = flags.ChangedHighLight;
    return r;
}

void frmDocument::ColorCode() {
    if (codingInProgress_ || !ChangedHighLight) return;
    bool changed = Changed;
    setCursor(Qt::BusyCursor);
    bool hide = rtfText->TextLength() > kHideWhileColouring;
    if (hide) {
        // The focus stays with this window while its editor is hidden: passed on, it would
        // land in the next control (the profile box) and the user's keys would choose there.
        // An activation meanwhile also finds this window itself ready to take it.
        if (rtfText->hasFocus()) setFocus(Qt::OtherFocusReason);
        rtfText->setVisible(false);
    } else {
        rtfText->SetRedraw(false);
    }
    QPointer<frmDocument> self(this);
    RunPainter([](PaintContext& c) { return ::ColorCode(c); }, 0, hide, true);
    if (!self) return; // the window went while the pass yielded
    if (hide) {
        rtfText->setVisible(true);
        if (hasFocus()) rtfText->setFocus(Qt::OtherFocusReason);
    } else {
        rtfText->SetRedraw(true);
    }
    Host().RefreshStatus();
    Changed = changed;
    unsetCursor();
    codingInProgress_ = false;
}

void frmDocument::CodeLine() {
    if (!codingInProgress_ && ChangedHighLight) {
        int first = rtfText->FirstVisibleLine();
        bool changed = Changed;
        rtfText->SetRedraw(false);
        int64_t a = rtfText->LineIndex(rtfText->LineFromChar(rtfText->SelStart()));
        int64_t n = rtfText->LineLength(a);
        codingInProgress_ = false;
        RunPainter([n](PaintContext& c) { return ::CodeLine(c, 0, n); }, a, false);
        ChangedHighLight = false;
        rtfText->SetFirstVisibleLine(first);
        rtfText->SetRedraw(true);
        Changed = changed;
    }
    codingInProgress_ = false;
}

void frmDocument::CodePassage(int64_t first, int64_t last) {
    if (first == last) {
        codingInProgress_ = false;
        return;
    }
    if (codingInProgress_ || !ChangedHighLight) return;
    bool changed = Changed;
    rtfText->SetRedraw(false);
    // The painter's own guard handles the flag from here; it must see it clear to start.
    int64_t from = std::min(first, last);
    RunPainter([first, last,
                from](PaintContext& c) { return ::CodePassage(c, first - from, last - from); },
               from, false);
    ChangedHighLight = false;
    codingInProgress_ = false;
    rtfText->SetRedraw(true);
    Changed = changed;
}

void frmDocument::CommentBlock() {
    if (rtfText->SelLength() == 0) return;
    const DelimiterPair* comment = nullptr;
    for (const DelimiterPair& d : settings_.Delimiters)
        if (d.DelimiterColor == 1) {
            comment = &d;
            break;
        }
    if (!comment) return;
    std::string end = comment->DelimiterEnd;
    for (char& c : end) c = char(std::toupper(static_cast<unsigned char>(c)));
    if (end != "\r\n") {
        // A block comment: the selection is wrapped once.
        int64_t s = rtfText->SelStart();
        int64_t length = rtfText->SelLength() +
                         int64_t(comment->DelimiterStart.size() + comment->DelimiterEnd.size());
        rtfText->SetSelText(comment->DelimiterStart + rtfText->SelText() + comment->DelimiterEnd);
        CodePassage(s, s + length);
    } else {
        rtfText->SetRedraw(false);
        LineCommandResult r =
            LineCommand(rtfText->TextView(), rtfText->SelStart(), rtfText->SelLength(),
                        LineStep::Prefix, comment->DelimiterStart + " ");
        rtfText->ApplyEdits(r.edits);
        rtfText->SetSelStart(r.selStart);
        rtfText->SetSelLength(r.selLength);
        ChangedHighLight = true;
        CodePassage(r.selStart, r.selStart + r.selLength);
        rtfText->SetRedraw(true);
    }
    codingInProgress_ = false;
}
