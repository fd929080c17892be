#pragma once
// What a document window needs from the window that holds it: the tab strip, the status
// panels, the edit menu, the commands it hands keys to, and the way to open more files.
// The main window is one host; the headless host serves kestrum-do and the tests.
#include <QKeySequence>
#include <QList>
#include <QPoint>
#include <QSize>
#include <QString>
#include <optional>

class frmDocument;

class DocumentHost {
  public:
    virtual ~DocumentHost() = default;

    // The active document, or none.
    virtual frmDocument* ActiveDocument() const = 0;
    // Makes the document the active one (its window comes to the front).
    virtual void ActivateDocument(frmDocument* doc) = 0;
    // The space a new document window may fill.
    virtual QSize DocumentAreaSize() const { return {800, 600}; }

    // Tab strip, kept in step with the documents by slot key "Tab<n>".
    virtual void AddTab(const QString& key, const QString& caption) {}
    virtual void RemoveTab(const QString& key) {}
    virtual void SetTabCaption(const QString& key, const QString& caption) {}
    virtual void SelectTab(const QString& key, const QString& toolTip) {}
    // The syntax profile the active document colours with ("" when it has none).
    virtual void ShowSyntaxProfile(const QString& name) {}

    // Status panels: 1 messages, 2 selection, 3 position, 4 modified state, 5 "INS".
    virtual void SetPanelText(int panel, const QString& text) {}
    virtual void SetPanelEnabled(int panel, bool enabled) {}
    virtual void SetDocInfo(const QString& text) {}
    virtual void RefreshStatus() {}

    virtual void PopupEditMenu(const QPoint& globalPos) {}
    // Keys the edit control must leave to the host's menus.
    virtual QList<QKeySequence> MenuShortcuts() const { return {}; }
    // Runs a command of the host's command table by its menu name ("mnuFormatIndent").
    virtual void RunCommand(const char* name) {}
    // Saves the active document as File > Save does; false when it was not saved.
    virtual bool SaveActiveDocument() { return false; }
    // The completion entry for a typed word, if the host's list has one.
    virtual std::optional<QString> CompletionFor(const QString& word) const { return {}; }
    // Opens a file in a new document, as File > Open does; null with the reason on failure.
    virtual frmDocument* OpenFileInNewDocument(const QString& path, const QString& backup,
                                               bool addToRecent, QString* error) {
        return nullptr;
    }
};

// The host of this process's documents; never null (a headless host stands in until a
// window installs itself).
DocumentHost& Host();
// Installs a host; nullptr restores the headless one.
void SetDocumentHost(DocumentHost* host);
