#pragma once
// frmCompilerOutput: follows the capture file while a tool runs. A double click on a line
// that names a file and line ("a.c:12:5:", Python's 'File "x", line n') opens it there.
#include "tools/core/CaptureTail.h"

#include <QDialog>
#include <functional>
#include <string>

class CaptureView;
class QTimer;
class QToolBar;

class frmCompilerOutput : public QDialog {
    Q_OBJECT
  public:
    // baseDir: where relative file names of the output are found (the document's folder).
    frmCompilerOutput(const QString& captureFile, const QString& baseDir, QWidget* parent);
    ~frmCompilerOutput() override;

    // Opens a file at a 1-based line and column (0: none).
    std::function<void(const QString& path, int line, int column)> OpenLocation;

    void Timer1_Timer();
    void Form_Unload();
    // The double click on line n (0-based) of the output.
    void txtOutput_DblClick(int line);
    QString OutputText() const;
    // The most bytes read and appended in one step (tests make it small).
    void SetSliceForTesting(std::size_t bytes) { slice_ = bytes; }

    QToolBar* tbCompilerOut = nullptr;
    CaptureView* txtOutput = nullptr;
    QTimer* Timer1 = nullptr;

  protected:
    void done(int r) override;

  private:
    CaptureTail tail_;
    QString baseDir_;
    bool unloaded_ = false;
    std::size_t slice_;
    bool stepQueued_ = false;
    bool failed_ = false; // the view shows that the file could not be read
};
