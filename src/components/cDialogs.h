#pragma once
// The one road to every message box and common dialog. The program asks through
// cDialogs::Get(); tests install a scripted implementation that answers from a queue, so
// that every command can be driven headless.
#include <QColor>
#include <QFont>
#include <QString>
#include <optional>

class QPrinter;
class QWidget;

enum class MsgButtons { OK, OKCancel, YesNo, YesNoCancel };
enum class MsgIcon { None, Information, Question, Exclamation, Critical };
enum class MsgResult { OK, Cancel, Yes, No };

struct FileDialogOptions {
    bool save = false;
    QString title;         // DialogTitle
    QString filter;        // "Text Files (*.txt)|*.txt|All Files (*.*)|*.*"
    int filterIndex = 1;   // 1-based, as the filter pairs are counted
    QString initDir;
    QString defaultExt;    // without the dot
    QString fileName;
    bool fileMustExist = false;
    bool overwritePrompt = false;
};

class cDialogs {
  public:
    virtual ~cDialogs() = default;

    virtual MsgResult MsgBox(const QString& text, MsgButtons buttons, MsgIcon icon,
                             const QString& caption);
    // The chosen path, or nothing for Cancel.
    virtual std::optional<QString> FileDialog(const FileDialogOptions& options);
    virtual std::optional<QFont> FontDialog(const QFont& initial, const QString& title);
    virtual std::optional<QColor> ColorDialog(const QColor& initial);
    // True when the user accepted; the printer then holds the choices.
    virtual bool PrintDialog(QPrinter& printer);
    // The typed line; the empty string for Cancel (and for an empty OK alike).
    virtual QString InputPrompt(const QString& prompt, const QString& title,
                                const QString& defaultText);

    static cDialogs& Get();
    // Replaces the implementation (tests); nullptr restores the real dialogs.
    static void Install(cDialogs* dialogs);

    // Parent for dialogs: the active window or the main window.
    static QWidget* ParentWidget();
};

// The "Desc|pattern|Desc|pattern" filter turned into Qt's ";;" form.
QStringList FilterToQt(const QString& filter);
