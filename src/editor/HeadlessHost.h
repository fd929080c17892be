#pragma once
// A host without a window: the documents live as hidden widgets, the last one made or
// activated is the active one, and nothing is shown. kestrum-do and the tests use it.
#include "editor/DocumentHost.h"

#include <QPointer>

class HeadlessHost : public DocumentHost {
  public:
    frmDocument* ActiveDocument() const override;
    void ActivateDocument(frmDocument* doc) override;
    frmDocument* OpenFileInNewDocument(const QString& path, const QString& backup,
                                       bool addToRecent, QString* error) override;

  private:
    QPointer<frmDocument> active_;
};
