#pragma once
// frmDocument: one document window of the main window, built round its edit control.
// It owns its text and colours and a private copy of the syntax settings, so that documents
// of different languages keep their own keyword lists.
#include "base/EditorSettings.h"
#include "base/FileIdentity.h"
#include "editor/RichEdit.h"
#include "editor/core/Painter.h"

#include <functional>
#include <optional>
#include <vector>

#include <QString>
#include <QWidget>

class QLabel;
class QTimer;
class QMdiSubWindow;

class frmDocument : public QWidget, public RichEditEvents {
    Q_OBJECT
  public:
    // Why a window closes: 0 the user, 1 code, above 1 the main window or the session ends.
    enum UnloadMode { vbFormControlMenu = 0, vbFormCode = 1, vbAppWindows = 2, vbFormMDIForm = 4 };

    explicit frmDocument(int16_t formIndex, QWidget* parent = nullptr);
    ~frmDocument() override;

    // The text differs from the file on disk.
    bool Changed = false;
    // The text changed since it was last coloured.
    bool ChangedHighLight = false;
    // Slot in the table of documents; names the tab "Tab<n>".
    int16_t FormIndex = 0;
    bool CodingInProgress() const { return codingInProgress_; }

    RichEdit* rtfText = nullptr;
    QLabel* lblColors = nullptr;
    QTimer* tmrChanges = nullptr;
    // Recolours the line being typed a moment after the last key.
    QTimer* tmrLiveColour = nullptr;

    // Full path of the file, empty for a new document.
    QString Tag;
    QString Caption() const { return windowTitle(); }
    void SetCaption(const QString& caption);
    QString TabKey() const { return QStringLiteral("Tab%1").arg(FormIndex); }
    // The window's own copy of the syntax settings.
    EditorSettings& Settings() { return settings_; }
    bool SyntaxLoaded() const { return syntaxLoaded_; }
    // The name of the profile read by SetSyntax; empty when the global settings apply.
    const QString& SyntaxProfile() const { return syntaxProfile_; }
    QMdiSubWindow* SubWindow() const;

    // Closes the window for the given reason; false when it stayed open.
    bool CloseWith(UnloadMode reason);

    void Form_Load();
    void Form_Resize();
    void ToggleWrap();
    void ReflectSettings();
    void RefreshDisplay();
    void Form_Activate();

    // The file behind the document and other programs: what the file named by Tag is on
    // disk is remembered at each load and save. Before a save over it, a change made since
    // is confirmed with the user (false: leave the file alone); on activation, a changed
    // file is offered for reading again when the document holds no unsaved edits.
    void RememberDiskFile();
    bool MayOverwriteDiskFile();
    void OfferReloadIfChangedOnDisk();
    // Reads the file named by Tag again and colours it; false when it could not be read.
    bool ReloadFromDisk();
    void Form_GotFocus();
    void tmrChanges_Timer();

    // Colouring.
    void ColorCode();
    void CodeLine();
    void CodePassage(int64_t first, int64_t last);
    void CommentBlock();
    // Reads the profile that the file's extension names into Settings.
    void SetSyntax();

    // Handlers of rtfText.
    void rtfText_Change() override;
    void rtfText_KeyDown(int& KeyCode, int& Shift) override;
    void rtfText_KeyPress(int& KeyAscii) override;
    void rtfText_KeyUp(int& KeyCode, int& Shift) override;
    void rtfText_MouseUp(int Button, int Shift, int x, int y) override;
    void rtfText_SelChange() override;
    void rtfText_OLEDragDrop(const QStringList& files) override;

    bool SelChangeMuted = false;

  protected:
    void closeEvent(QCloseEvent* e) override;
    void resizeEvent(QResizeEvent* e) override;
    void focusInEvent(QFocusEvent* e) override;

  private:
    bool ChangedOnDisk() const;
    bool StepOverCloser(int& KeyAscii);
    QString diskFile_;
    // Where the closers of the bracket pairs that typing completed stand, innermost last,
    // while the caret is inside them; typing such a closer right before it steps over it.
    std::vector<int64_t> autoClosers_;
    std::optional<FileIdentity> diskIdentity_;

    // Form_QueryUnload: true cancels the close.
    bool Form_QueryUnload(int unloadMode);
    // Runs a painter pass over this window's text from viewStart on and applies what it
    // painted; the pass counts positions from viewStart. wholeText: the pass paints every
    // position, so that its slots are made room for once.
    PassResult RunPainter(const std::function<PassResult(PaintContext&)>& pass, int64_t viewStart,
                          bool showProgress, bool wholeText = false);
    void Form_Unload();

    EditorSettings settings_;
    bool codingInProgress_ = false;
    QString syntaxProfile_;
    bool syntaxLoaded_ = false;
    bool unloaded_ = false;
    int pendingUnloadMode_ = vbFormControlMenu;
};
