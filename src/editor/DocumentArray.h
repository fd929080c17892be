#pragma once
// The table of document windows: the one owner of every frmDocument, and the one way to
// make a document. Anything that goes over all documents walks it.
#include "editor/core/DocumentSlots.h"

#include <QPointer>
#include <vector>

class frmDocument;
class QMdiArea;
class QMdiSubWindow;
class QWidget;

class DocumentArray {
  public:
    // The slot table, free slot 1 ready, as the main window's load step leaves it.
    void Reset(QMdiArea* area);

    // Makes a document window and shows it; it becomes the active one.
    frmDocument* NewDocument();
    int FindFreeIndex() { return slots_.FindFreeIndex(); }
    // Marks a slot free when its window unloads.
    void Release(int index);

    frmDocument* Document(int index) const;
    // The open documents in slot order.
    std::vector<frmDocument*> OpenDocuments() const;
    int UpperBound() const { return slots_.UpperBound(); }
    bool IsFree(int index) const { return slots_.IsFree(index); }
    int32_t FileCounter() const { return slots_.FileCounter; }
    // The distance between two windows of a cascade: one caption bar.
    static int CascadeStep(const QWidget* window);

  private:
    void PlaceNewWindow(QMdiSubWindow* window);

    DocumentSlots slots_;
    std::vector<QPointer<frmDocument>> windows_;
    QMdiArea* area_ = nullptr;
};

DocumentArray& Documents();
frmDocument* NewDocument();
