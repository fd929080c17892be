#pragma once
// Where a whole-document colouring goes: the painter hands it over stretch by stretch, and
// this target gets each finished stretch into the document's edit control, so that a large
// document's colours are never held in full beside the control's own style bytes.
#include "editor/core/SlotBuffer.h"

#include <cstdint>
#include <vector>

class RichEdit;

class StyleStretches final : public PaintTarget {
  public:
    // Texts of these lengths are painted in place into one store that the control takes as
    // it shows the text: writing a whole text's styles into the control costs more than
    // painting them (QScintilla takes them byte by byte), and a store up to this size is
    // little beside the control's text, style bytes and line index. Shorter texts and longer
    // ones have each stretch written in as it is finished.
    static constexpr int64_t kStoreFrom = 64 << 10, kStoreUpTo = 16 << 20;
    // A text that is written in is painted in the painter's own buffer, in stretches that
    // fit in one huge page of the program's heap.
    static constexpr int64_t kWrittenStretch = (2 << 20) - (16 << 10);

    // For the length bytes of text from position base on.
    StyleStretches(RichEdit& edit, int64_t base, int64_t length, int64_t storeUpTo = kStoreUpTo);

    // Into the store where it has the positions, else straight into the control.
    void Paint(int64_t start, int64_t length, ColorSlot slot) override;
    uint8_t* Stretch(int64_t start, int64_t length) override;
    void Finished(int64_t start, const uint8_t* bytes, int64_t length) override;

    // Hands the store to the control once the pass is done; without this call its colours
    // are dropped.
    void Apply();
    // The stretch length for the painter: its usual one where the store is painted in place.
    int64_t StretchBytes(int64_t usual) const {
        return store_.capacity() > 0 ? usual : kWrittenStretch;
    }

  private:
    RichEdit& edit_;
    int64_t base_;
    std::vector<uint8_t> store_;
};
