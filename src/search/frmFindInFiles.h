#pragma once
// Find in Files: the dialog that asks for the text, folder and filter, and the results pane
// that fills from a worker thread as files are searched. A double click on a row opens its
// file (or activates its open document) with the match selected.
#include "search/core/FileSearch.h"

#include <QDialog>
#include <QDockWidget>
#include <atomic>
#include <memory>
#include <thread>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QPushButton;

class frmFindInFiles : public QDialog {
    Q_OBJECT
  public:
    explicit frmFindInFiles(QWidget* parent = nullptr);
    // Shows the dialog modally; its Find starts the search in the results pane.
    static void ShowDialog();

    void cmdFind_Click();

    QLineEdit* txtFind = nullptr;
    QLineEdit* txtFolder = nullptr;
    QLineEdit* txtFilter = nullptr;
    QCheckBox* chkCaseSensitive = nullptr;
    QCheckBox* chkWholeWord = nullptr;
    QPushButton* cmdFind = nullptr;
    QPushButton* cmdClose = nullptr;
};

class FindInFilesPane : public QDockWidget {
    Q_OBJECT
  public:
    explicit FindInFilesPane(QWidget* parent = nullptr);
    ~FindInFilesPane() override;
    // The pane of the main window, made and docked at first use.
    static FindInFilesPane& Instance();

    // Starts a search (stopping one that runs); false with a message for a folder that
    // cannot be searched.
    bool Start(const QString& text, const QString& folder, const FileSearchOptions& options);
    void Stop();
    // Waits for the running search to end (tests and the headless host).
    void Wait();
    bool Running() const { return running_; }
    int Count() const { return count_; }
    // Opens the row's file with its match selected.
    void OpenRow(int row);

    QListWidget* lstResults = nullptr;
    QLabel* lblCount = nullptr;
    QPushButton* cmdStop = nullptr;

  signals:
    void Finished();

  private:
    void Add(std::vector<FileMatch> matches);
    void Done(quint64 generation);
    void ShowCount();

    struct Row {
        QString path;
        int64_t line, column, length;
    };
    std::vector<Row> rows_;
    std::thread worker_;
    std::shared_ptr<std::atomic<bool>> stop_;
    quint64 generation_ = 0;
    bool running_ = false;
    int count_ = 0;
    int64_t findLength_ = 0;
};
