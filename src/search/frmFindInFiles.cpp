#include "search/frmFindInFiles.h"

#include "base/qt/AppGlobals.h"
#include "base/qt/FilePaths.h"
#include "components/cDialogs.h"
#include "editor/DocumentArray.h"
#include "editor/DocumentHost.h"
#include "editor/frmDocument.h"
#include "search/DocumentSearch.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>
#include <unistd.h>

frmFindInFiles::frmFindInFiles(QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("Find in Files"));
    setAccessibleName(windowTitle());
    auto* grid = new QGridLayout(this);
    auto row = [&](const QString& caption, QLineEdit*& edit, int r) {
        auto* label = new QLabel(caption, this);
        edit = new QLineEdit(this);
        edit->setAccessibleName(caption);
        edit->setMinimumWidth(320);
        label->setBuddy(edit);
        grid->addWidget(label, r, 0);
        grid->addWidget(edit, r, 1);
    };
    row(tr("Text to Find"), txtFind, 0);
    row(tr("In Folder"), txtFolder, 1);
    row(tr("File Types"), txtFilter, 2);
    txtFilter->setText(QStringLiteral("*.*"));
    chkCaseSensitive = new QCheckBox(tr("Case Sensitive"), this);
    chkWholeWord = new QCheckBox(tr("Whole Word"), this);
    grid->addWidget(chkCaseSensitive, 3, 1);
    grid->addWidget(chkWholeWord, 4, 1);
    cmdFind = new QPushButton(tr("&Find"), this);
    cmdClose = new QPushButton(tr("Close"), this);
    cmdFind->setDefault(true);
    grid->addWidget(cmdFind, 0, 2);
    grid->addWidget(cmdClose, 1, 2);
    for (QAbstractButton* b : std::initializer_list<QAbstractButton*>{
             chkCaseSensitive, chkWholeWord, cmdFind, cmdClose})
        b->setAccessibleName(b->text());
    // The active document's folder, else the home folder.
    QString folder = QDir::homePath();
    if (frmDocument* doc = Host().ActiveDocument(); doc && !doc->Tag.isEmpty())
        folder = QFileInfo(doc->Tag).absolutePath();
    txtFolder->setText(folder);
    connect(cmdFind, &QPushButton::clicked, this, &frmFindInFiles::cmdFind_Click);
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::reject);
}

void frmFindInFiles::ShowDialog() {
    frmFindInFiles dialog(cDialogs::ParentWidget());
    ShowSearchDialog(dialog);
}

void frmFindInFiles::cmdFind_Click() {
    if (txtFind->text().isEmpty()) {
        cDialogs::Get().MsgBox(tr("Search Text not found."), MsgButtons::OK, MsgIcon::None,
                               AppTitle());
        return;
    }
    FileSearchOptions options;
    options.matchCase = chkCaseSensitive->isChecked();
    options.wholeWord = chkWholeWord->isChecked();
    options.filter = txtFilter->text().toStdString();
    if (FindInFilesPane::Instance().Start(txtFind->text(), txtFolder->text(), options)) accept();
}

// ---------------------------------------------------------------- results pane

FindInFilesPane::FindInFilesPane(QWidget* parent) : QDockWidget(tr("Find in Files Results"), parent) {
    setObjectName(QStringLiteral("FindInFilesPane"));
    setAccessibleName(windowTitle());
    auto* body = new QWidget(this);
    auto* layout = new QVBoxLayout(body);
    auto* bar = new QHBoxLayout;
    lblCount = new QLabel(body);
    cmdStop = new QPushButton(tr("Stop"), body);
    cmdStop->setAccessibleName(cmdStop->text());
    cmdStop->setEnabled(false);
    bar->addWidget(lblCount, 1);
    bar->addWidget(cmdStop);
    layout->addLayout(bar);
    lstResults = new QListWidget(body);
    lstResults->setAccessibleName(tr("Results"));
    lstResults->setUniformItemSizes(true);
    layout->addWidget(lstResults);
    setWidget(body);
    connect(cmdStop, &QPushButton::clicked, this, &FindInFilesPane::Stop);
    connect(lstResults, &QListWidget::itemActivated, this,
            [this](QListWidgetItem* item) { OpenRow(lstResults->row(item)); });
    ShowCount();
}

FindInFilesPane::~FindInFilesPane() {
    Stop();
    if (worker_.joinable()) worker_.join();
}

FindInFilesPane& FindInFilesPane::Instance() {
    static QPointer<FindInFilesPane> pane;
    if (!pane) {
        QWidget* parent = cDialogs::ParentWidget();
        while (parent && !qobject_cast<QMainWindow*>(parent)) parent = parent->parentWidget();
        pane = new FindInFilesPane(parent);
        if (auto* main = qobject_cast<QMainWindow*>(parent))
            main->addDockWidget(Qt::BottomDockWidgetArea, pane);
    }
    return *pane;
}

bool FindInFilesPane::Start(const QString& text, const QString& folder,
                            const FileSearchOptions& options) {
    Stop();
    if (worker_.joinable()) worker_.join();
    if (!IsFolderPath(folder) || ::access(ToBytes(folder).c_str(), R_OK) != 0) {
        cDialogs::Get().MsgBox(
            tr("The folder %1 does not exist or cannot be read.").arg(ShownText(folder)),
                               MsgButtons::OK, MsgIcon::Exclamation, tr("Find in Files"));
        return false;
    }
    lstResults->clear();
    rows_.clear();
    count_ = 0;
    findLength_ = int64_t(text.toUtf8().size());
    running_ = true;
    cmdStop->setEnabled(true);
    ShowCount();
    show();
    raise();
    const quint64 generation = ++generation_;
    stop_ = std::make_shared<std::atomic<bool>>(false);
    QPointer<FindInFilesPane> self(this);
    std::string find = text.toStdString(), root = ToBytes(folder);
    auto stop = stop_;
    worker_ = std::thread([self, generation, find, root, options, stop] {
        std::string error;
        SearchFolder(root, find, options, stop.get(), [&](std::vector<FileMatch>&& ms) {
            QMetaObject::invokeMethod(
                self, [self, generation, ms = std::move(ms)]() mutable {
                    if (self && self->generation_ == generation) self->Add(std::move(ms));
                }, Qt::QueuedConnection);
        }, error);
        QMetaObject::invokeMethod(self, [self, generation] {
            if (self) self->Done(generation);
        }, Qt::QueuedConnection);
    });
    return true;
}

void FindInFilesPane::Stop() {
    if (stop_) stop_->store(true);
}

void FindInFilesPane::Wait() {
    if (worker_.joinable()) worker_.join();
    QCoreApplication::sendPostedEvents(this);
}

void FindInFilesPane::Add(std::vector<FileMatch> matches) {
    lstResults->setUpdatesEnabled(false);
    for (const FileMatch& m : matches) {
        rows_.push_back({FromBytes(m.path), m.line, m.column, findLength_});
        lstResults->addItem(QStringLiteral("%1:%2: %3")
                                .arg(ShownText(rows_.back().path))
                                .arg(m.line)
                                .arg(ShownText(FromBytes(m.text))));
        ++count_;
    }
    lstResults->setUpdatesEnabled(true);
    ShowCount();
}

void FindInFilesPane::Done(quint64 generation) {
    if (generation != generation_) return;
    running_ = false;
    cmdStop->setEnabled(false);
    ShowCount();
    emit Finished();
}

void FindInFilesPane::ShowCount() {
    lblCount->setText(running_ ? tr("%1 found, searching...").arg(count_)
                               : tr("%1 found").arg(count_));
}

void FindInFilesPane::OpenRow(int row) {
    if (row < 0 || size_t(row) >= rows_.size()) return;
    const Row& r = rows_[size_t(row)];
    const QString path = QFileInfo(r.path).absoluteFilePath();
    frmDocument* doc = nullptr;
    for (frmDocument* d : Documents().OpenDocuments())
        if (QFileInfo(d->Tag).absoluteFilePath() == path) doc = d;
    if (doc) {
        Host().ActivateDocument(doc);
    } else {
        QString error;
        doc = Host().OpenFileInNewDocument(path, QString(), true, &error);
        if (!doc) {
            if (!error.isEmpty())
                cDialogs::Get().MsgBox(error, MsgButtons::OK, MsgIcon::Critical,
                                       tr("File I/O Error"));
            return;
        }
    }
    RichEdit& rtf = *doc->rtfText;
    const int64_t start = rtf.LineIndex(int(r.line - 1)) + r.column - 1;
    rtf.SetSelStart(start);
    rtf.SetSelLength(r.length);
    rtf.setFocus();
}
