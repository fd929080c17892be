#pragma once
// "HTML Tags": a tool window beside the documents; a double click puts the entry into the
// active document, a pair around its selection. It keeps its place and size in the settings.
#include <functional>

#include <QWidget>

class QListWidget;
class frmDocument;

class frmHTMLTags : public QWidget {
    Q_OBJECT
  public:
    // activeDocument names the document to insert into, or nullptr when none is open.
    frmHTMLTags(std::function<frmDocument*()> activeDocument, QWidget* parent = nullptr);
    ~frmHTMLTags() override;

    QListWidget* lstTags = nullptr;
    void InsertSelectedTag();

  protected:
    void closeEvent(QCloseEvent* e) override;

  private:
    void SavePlace();
    std::function<frmDocument*()> activeDocument_;
    bool saved_ = false;
};
