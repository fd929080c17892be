#include "editor/DocumentHost.h"

#include "editor/DocumentArray.h"
#include "editor/HeadlessHost.h"
#include "editor/frmDocument.h"

#include <QFileInfo>

namespace {
DocumentHost* installed = nullptr;
} // namespace

DocumentHost& Host() {
    static HeadlessHost headless;
    return installed ? *installed : headless;
}

void SetDocumentHost(DocumentHost* host) { installed = host; }

frmDocument* HeadlessHost::ActiveDocument() const {
    if (active_ && !Documents().IsFree(active_->FormIndex)) return active_;
    return nullptr;
}

void HeadlessHost::ActivateDocument(frmDocument* doc) { active_ = doc; }

frmDocument* HeadlessHost::OpenFileInNewDocument(const QString& path, const QString&, bool,
                                                 QString* error) {
    frmDocument* doc = NewDocument();
    if (!doc) return nullptr;
    if (!doc->rtfText->LoadFile(path, 1, error)) return nullptr;
    doc->SetCaption(QFileInfo(path).fileName());
    doc->Tag = path;
    doc->SetSyntax();
    doc->Changed = false;
    return doc;
}
