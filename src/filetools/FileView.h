#pragma once
// FileView: one list that shows the drives, the parent folder, the subfolders and the files of
// the current folder together, with an image per kind. Navigation happens inside the
// component; the host hears of a double-clicked file and of the mouse and keys.
//
// The folder is read on a worker thread: a folder of many files, or a mount that hangs, never
// freezes the window. Until the listing arrives the older list stays.
#include <QAbstractListModel>
#include <QIcon>
#include <QString>
#include <QWidget>
#include <memory>
#include <vector>

class QTreeView;

struct FileViewRow {
    QString text;
    int image = 0; // the row's kind, see BrowserImage
    QString path;  // what a double click goes to: a folder, a drive or a file
};

class FileViewModel : public QAbstractListModel {
    Q_OBJECT
  public:
    using QAbstractListModel::QAbstractListModel;
    void SetRows(std::vector<FileViewRow> rows);
    const std::vector<FileViewRow>& Rows() const { return rows_; }
    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    static constexpr int kImageRole = Qt::UserRole + 1;
    // The image of a kind: from the icon theme by a MIME type of that kind, else the style's.
    static QIcon Image(int image);

  private:
    std::vector<FileViewRow> rows_;
};

class FileView : public QWidget {
    Q_OBJECT
  public:
    explicit FileView(QWidget* parent = nullptr);
    ~FileView() override;

    // Path: the current folder, without a trailing "/" except at the root. Setting it reads
    // the folder anew.
    QString Path() const { return path_; }
    void SetPath(const QString& path);
    QString Pattern() const { return pattern_; }
    void SetPattern(const QString& pattern);
    bool Hidden() const { return hidden_; }
    void SetHidden(bool hidden);
    bool MultiSelect() const;
    void SetMultiSelect(bool on);
    // 0 shows the report view; the list gets the view 3 minus this value.
    int View() const { return view_; }
    void SetView(int view);
    // The selected files (not folders or drives), each as its full path, joined by "|".
    QString SelectedFiles() const;

    void Refresh();
    void ParentDir();
    // True while a listing is on its way.
    bool Busy() const { return pending_ != 0; }

    QTreeView* lvFiles = nullptr;
    FileViewModel* model = nullptr;

    // Runs the double click on the selected row (lvFiles_DblClick).
    void lvFiles_DblClick();

  signals:
    void MouseDown(Qt::MouseButton button, Qt::KeyboardModifiers shift, QPoint pos);
    void MouseMove(Qt::MouseButtons buttons, Qt::KeyboardModifiers shift, QPoint pos);
    void MouseUp(Qt::MouseButton button, Qt::KeyboardModifiers shift, QPoint pos);
    void KeyDown(int key, Qt::KeyboardModifiers shift);
    void KeyPress(const QString& text);
    void KeyUp(int key, Qt::KeyboardModifiers shift);
    void DirChange(const QString& path); // with a trailing "/"
    void FileDblClick(const QString& path);
    // A listing has been shown (or failed and left the list as it was).
    void Populated();

  protected:
    bool eventFilter(QObject* o, QEvent* e) override;

  private:
    struct Shared;
    void Populate(const QString& folder);
    void Show(unsigned generation, const QString& folder, bool ok, std::vector<FileViewRow> rows);

    QString path_, pattern_ = "*.*";
    bool hidden_ = false;
    int view_ = 0;
    unsigned generation_ = 0;
    int pending_ = 0;
    std::shared_ptr<Shared> shared_;
};
