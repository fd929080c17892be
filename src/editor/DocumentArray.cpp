#include "editor/DocumentArray.h"

#include "editor/DocumentHost.h"
#include "editor/core/WindowPlacement.h"
#include "editor/frmDocument.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QStyle>

DocumentArray& Documents() {
    static DocumentArray table;
    return table;
}

frmDocument* NewDocument() {
    return Documents().NewDocument();
}

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
        PlaceNewWindow(w);
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

void DocumentArray::PlaceNewWindow(QMdiSubWindow* w) {
    if (w->isMaximized()) return;
    // The next place of a cascade that starts again at the top left before a window would
    // leave the area, so that a new window never opens partly out of view.
    QSize area = Host().DocumentAreaSize();
    size_t others = 0;
    for (QMdiSubWindow* o : area_->subWindowList())
        if (o != w && o->isVisible() && !o->isMinimized()) ++others;
    WindowRect r = KeepInside({0, 0, w->width(), w->height()}, area.width(), area.height());
    r = CascadePlace(others, area.width(), area.height(), r.width, r.height, CascadeStep(w));
    w->setGeometry(r.x, r.y, r.width, r.height);
}

int DocumentArray::CascadeStep(const QWidget* w) {
    // One title bar and its frame, so that each window's caption shows below the one before.
    return w->style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, w) +
           w->style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth, nullptr, w);
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
