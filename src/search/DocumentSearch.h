#pragma once
// The search commands' access to a document: its control's Find, a replace target for the
// prompting loop, and replace-all applied as one undo step that yields on time.
#include "search/core/ReplaceLoop.h"

#include <QString>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

class QDialog;
class RichEdit;
class frmDocument;

// rtfText.Find: the first match in [start, end) (end -1: to the end), selected; or -1.
int64_t FindInDocument(RichEdit& rtf, std::string_view text, int64_t start, int64_t end,
                       bool wholeWord, bool matchCase);

// Text of a box as the document holds it; empty when the document cannot hold a character
// of it (such a text can never be found in it).
std::string DocumentBytes(const RichEdit& rtf, const QString& text);
// A multi-line box's text with its line breaks as CR LF, as the document holds them; and back.
QString BoxToCrLf(const QString& boxText);
QString CrLfToBox(const QString& text);

class RichEditTarget : public ReplaceTarget {
  public:
    explicit RichEditTarget(RichEdit& rtf) : rtf_(rtf) {}
    int64_t Find(std::string_view text, int64_t start, int64_t end, bool matchCase) override;
    void ReplaceSelection(std::string_view text) override;
    int64_t SelStart() const override;
    int64_t SelLength() const override;

  private:
    RichEdit& rtf_;
};

// Replaces every occurrence in the whole text, or in the selection, left to right without
// rescanning inserted text. Nothing changes (not even Changed) when nothing is replaced.
// Large replacements go in stretches, with the event loop served between them.
void ReplaceAllInDocument(RichEdit& rtf, bool inSelection, std::string_view find,
                          std::string_view replacement, bool matchCase);

// Shows a search dialog modally; tests replace the loop with one of their own.
void ShowSearchDialog(QDialog& dialog);
void SetSearchDialogRunnerForTesting(std::function<void(QDialog&)> runner);
