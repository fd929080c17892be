#include "filetools/FileView.h"

#include "base/qt/AppGlobals.h"
#include "filetools/core/FolderListing.h"

#include <QApplication>
#include <QDir>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMimeDatabase>
#include <QMouseEvent>
#include <QStyle>
#include <QTreeView>
#include <QVBoxLayout>
#include <mutex>
#include <thread>

// The worker posts to the view only while it lives: the view clears `view` under the lock
// before it goes, and a listing that hangs on a dead mount just finishes into nothing.
struct FileView::Shared {
    std::mutex lock;
    FileView* view = nullptr;
};

namespace {
// A path keeps bytes that are not UTF-8 (see FromBytes), so that the row still opens.
QString DecodePath(const std::string& path) { return FromBytes(path); }

// A row's text. A newline or other control character in a name would break the row, so it
// shows as "?"; the row's path keeps the name as it is, so that it still opens.
QString Decode(const std::string& name) {
    QString s = ShownText(DecodePath(name));
    for (QChar& c : s)
        if (c.unicode() < 0x20) c = u'?';
    return s;
}

std::string ReadMounts() {
    std::string text;
    if (std::FILE* f = std::fopen("/proc/self/mounts", "r")) {
        char buf[4096];
        for (size_t n; (n = std::fread(buf, 1, sizeof buf, f)) > 0;) text.append(buf, n);
        std::fclose(f);
    }
    return text;
}

// The rows of the list, top to bottom: drives, parent, subfolders, files.
bool BuildRows(const std::string& folder, const ListingOptions& options, const std::string& home,
               const std::string& user, std::vector<FileViewRow>& rows) {
    FolderListing l = ListFolder(folder, options);
    if (!l.ok) return false;
    for (const Drive& d : DrivesFrom(ReadMounts(), home, user))
        rows.push_back({Decode(d.text), kImageDrive, DecodePath(d.path)});
    const std::string parent = ParentFolder(folder);
    if (!parent.empty())
        rows.push_back({Decode(ParentRowText(parent)), kImageParent, DecodePath(parent)});
    const std::string base = WithSlash(folder);
    rows.reserve(rows.size() + l.folders.size() + l.files.size());
    for (const std::string& f : l.folders)
        rows.push_back({Decode(f), kImageFolder, DecodePath(base + f)});
    for (const std::string& f : l.files)
        rows.push_back({Decode(f), FileImageIndex(f), DecodePath(base + f)});
    return true;
}
} // namespace

void FileViewModel::SetRows(std::vector<FileViewRow> rows) {
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
}

int FileViewModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant FileViewModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || size_t(index.row()) >= rows_.size()) return {};
    const FileViewRow& r = rows_[size_t(index.row())];
    if (role == Qt::DisplayRole || role == Qt::AccessibleTextRole) return r.text;
    if (role == Qt::DecorationRole) return Image(r.image);
    if (role == kImageRole) return r.image;
    if (role == Qt::ToolTipRole) return r.path;
    return {};
}

QIcon FileViewModel::Image(int image) {
    static std::vector<QIcon> cache;
    if (cache.empty()) {
        struct Kind {
            const char* mime; // a MIME type of the kind; empty for the named icon alone
            const char* icon;
            QStyle::StandardPixmap fallback;
        };
        static const Kind kKinds[] = {
            {"inode/directory", "folder", QStyle::SP_DirIcon},
            {"", "go-up", QStyle::SP_FileDialogToParent},
            {"", "drive-harddisk", QStyle::SP_DriveHDIcon},
            {"application/octet-stream", "text-x-generic", QStyle::SP_FileIcon},
            {"image/png", "image-x-generic", QStyle::SP_FileIcon},
            {"text/plain", "text-x-generic", QStyle::SP_FileIcon},
            {"video/mpeg", "video-x-generic", QStyle::SP_MediaPlay},
            {"application/x-executable", "application-x-executable", QStyle::SP_ComputerIcon},
            {"text/html", "text-html", QStyle::SP_FileLinkIcon},
            {"application/x-sharedlib", "application-x-sharedlib", QStyle::SP_DriveCDIcon},
            {"application/zip", "package-x-generic", QStyle::SP_DirClosedIcon},
            {"", "help-browser", QStyle::SP_MessageBoxQuestion},
        };
        QMimeDatabase db;
        for (const Kind& k : kKinds) {
            QIcon icon;
            if (*k.mime) {
                const QMimeType t = db.mimeTypeForName(k.mime);
                icon = QIcon::fromTheme(t.iconName(), QIcon::fromTheme(t.genericIconName()));
            }
            if (icon.isNull()) icon = QIcon::fromTheme(k.icon);
            if (icon.isNull()) icon = QApplication::style()->standardIcon(k.fallback);
            cache.push_back(icon);
        }
    }
    return image >= 1 && size_t(image) <= cache.size() ? cache[size_t(image - 1)] : QIcon();
}

FileView::FileView(QWidget* parent) : QWidget(parent), shared_(std::make_shared<Shared>()) {
    shared_->view = this;
    setObjectName("FileView");
    lvFiles = new QTreeView(this);
    lvFiles->setObjectName("lvFiles");
    lvFiles->setAccessibleName("Files");
    lvFiles->setRootIsDecorated(false);
    lvFiles->setUniformRowHeights(true);
    lvFiles->setHeaderHidden(true);
    lvFiles->setEditTriggers(QAbstractItemView::NoEditTriggers);
    model = new FileViewModel(this);
    lvFiles->setModel(model);
    lvFiles->viewport()->installEventFilter(this);
    lvFiles->installEventFilter(this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(lvFiles);
    connect(lvFiles, &QAbstractItemView::doubleClicked, this, [this] { lvFiles_DblClick(); });
    path_ = QDir::currentPath();
    Populate(path_);
}

FileView::~FileView() {
    std::lock_guard<std::mutex> g(shared_->lock);
    shared_->view = nullptr;
}

bool FileView::MultiSelect() const {
    return lvFiles->selectionMode() == QAbstractItemView::ExtendedSelection;
}

void FileView::SetMultiSelect(bool on) {
    lvFiles->setSelectionMode(on ? QAbstractItemView::ExtendedSelection
                                 : QAbstractItemView::SingleSelection);
}

void FileView::SetView(int view) { view_ = view; }

void FileView::SetPath(const QString& path) { Populate(path); }
void FileView::SetPattern(const QString& pattern) {
    pattern_ = pattern;
    Populate(path_);
}
void FileView::SetHidden(bool hidden) {
    hidden_ = hidden;
    Populate(path_);
}
void FileView::Refresh() { Populate(path_); }

void FileView::ParentDir() {
    const std::string parent = ParentFolder(ToBytes(path_));
    if (!parent.empty()) Populate(DecodePath(parent));
}

void FileView::Populate(const QString& folder) {
    const unsigned generation = ++generation_;
    ++pending_;
    ListingOptions options;
    options.pattern = pattern_.toStdString();
    options.hidden = hidden_;
    std::thread([shared = shared_, generation, folder, options,
                 name = ToBytes(folder), home = ToBytes(QDir::homePath()),
                 user = qEnvironmentVariable("USER").toStdString()] {
        std::vector<FileViewRow> rows;
        const bool ok = BuildRows(name, options, home, user, rows);
        std::lock_guard<std::mutex> g(shared->lock);
        if (FileView* view = shared->view)
            QMetaObject::invokeMethod(
                view,
                [view, generation, folder, ok, rows = std::move(rows)]() mutable {
                    view->Show(generation, folder, ok, std::move(rows));
                },
                Qt::QueuedConnection);
    }).detach();
}

void FileView::Show(unsigned generation, const QString& folder, bool ok,
                    std::vector<FileViewRow> rows) {
    --pending_;
    if (generation == generation_ && ok) {
        path_ = folder;
        size_t first = 0; // the selected row: the parent, or the first folder or file
        while (first < rows.size() && rows[first].image == kImageDrive) ++first;
        model->SetRows(std::move(rows));
        if (first < model->Rows().size())
            lvFiles->setCurrentIndex(model->index(static_cast<int>(first)));
    }
    if (pending_ == 0) emit Populated();
}

void FileView::lvFiles_DblClick() {
    const QModelIndex current = lvFiles->currentIndex();
    if (!current.isValid()) return;
    const FileViewRow row = model->Rows()[size_t(current.row())];
    switch (row.image) {
    case kImageFolder:
        Populate(row.path);
        emit DirChange(row.path + "/");
        break;
    case kImageParent:
    case kImageDrive:
        Populate(row.path);
        break;
    default:
        emit FileDblClick(row.path);
    }
}

QString FileView::SelectedFiles() const {
    QStringList parts;
    for (const QModelIndex& i : lvFiles->selectionModel()->selectedRows()) {
        const FileViewRow& r = model->Rows()[size_t(i.row())];
        if (r.image >= kImageFile) parts << r.path;
    }
    return parts.join('|').trimmed();
}

bool FileView::eventFilter(QObject* o, QEvent* e) {
    switch (e->type()) {
    case QEvent::MouseButtonPress:
        if (o == lvFiles->viewport()) {
            auto* m = static_cast<QMouseEvent*>(e);
            emit MouseDown(m->button(), m->modifiers(), m->position().toPoint());
        }
        break;
    case QEvent::MouseMove:
        if (o == lvFiles->viewport()) {
            auto* m = static_cast<QMouseEvent*>(e);
            emit MouseMove(m->buttons(), m->modifiers(), m->position().toPoint());
        }
        break;
    case QEvent::MouseButtonRelease:
        if (o == lvFiles->viewport()) {
            auto* m = static_cast<QMouseEvent*>(e);
            emit MouseUp(m->button(), m->modifiers(), m->position().toPoint());
        }
        break;
    case QEvent::KeyPress:
        if (o == lvFiles) {
            auto* k = static_cast<QKeyEvent*>(e);
            emit KeyDown(k->key(), k->modifiers());
            if (!k->text().isEmpty()) emit KeyPress(k->text());
        }
        break;
    case QEvent::KeyRelease:
        if (o == lvFiles) {
            auto* k = static_cast<QKeyEvent*>(e);
            emit KeyUp(k->key(), k->modifiers());
        }
        break;
    default:
        break;
    }
    return QWidget::eventFilter(o, e);
}
