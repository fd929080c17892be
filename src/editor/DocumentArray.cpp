#include "editor/DocumentArray.h"

#include "editor/DocumentHost.h"
#include "editor/frmDocument.h"

#include <QMdiArea>
#include <QMdiSubWindow>

DocumentArray& Documents() {
    static DocumentArray table;
    return table;
}

frmDocument* NewDocument() { return Documents().NewDocument(); }

void DocumentArray::Reset(QMdiArea* area) {
    area_ = area;
    slots_ = DocumentSlots();
    windows_.assign(1, nullptr);
}

frmDocument* DocumentArray::NewDocument() {
    int32_t number = slots_.NextFileNumber();
    int idx = slots_.FindFreeIndex();
    if (windows_.size() < size_t(idx)) windows_.resize(size_t(idx));
    auto* doc = new frmDocument(int16_t(idx));
    windows_[size_t(idx - 1)] = doc;
    doc->setWindowTitle("Untitled " + QString::number(number));
    if (area_) {
        QMdiSubWindow* w = area_->addSubWindow(doc);
        w->setAttribute(Qt::WA_DeleteOnClose);
        w->setWindowTitle(doc->windowTitle());
        doc->Form_Load();
        w->show();
        area_->setActiveSubWindow(w);
    } else {
        // Without a window the document is a hidden widget of its own.
        doc->setAttribute(Qt::WA_DeleteOnClose);
        doc->resize(Host().DocumentAreaSize());
        doc->Form_Load();
    }
    Host().ActivateDocument(doc);
    doc->Changed = false;
    return doc;
}

void DocumentArray::Release(int index) {
    slots_.Release(index);
    if (index >= 1 && size_t(index) <= windows_.size()) windows_[size_t(index - 1)] = nullptr;
}

frmDocument* DocumentArray::Document(int index) const {
    if (index < 1 || size_t(index) > windows_.size()) return nullptr;
    return windows_[size_t(index - 1)];
}

std::vector<frmDocument*> DocumentArray::OpenDocuments() const {
    std::vector<frmDocument*> out;
    for (size_t i = 0; i < windows_.size(); ++i)
        if (!slots_.IsFree(int(i + 1)) && windows_[i]) out.push_back(windows_[i]);
    return out;
}
