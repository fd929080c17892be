#include "transforms/frmHTMLTags.h"

#include "base/qt/AppGlobals.h"
#include "editor/frmDocument.h"
#include "transforms/TransformCommands.h"
#include "transforms/core/HtmlAssist.h"

#include <QCloseEvent>
#include <QListWidget>
#include <QVBoxLayout>

namespace {
int StoredInt(const char* key, int fallback) {
    bool ok = false;
    int v = GetSetting(AppTitle(), "Settings", key, QString::number(fallback)).toInt(&ok);
    return ok ? v : fallback;
}
} // namespace

frmHTMLTags::frmHTMLTags(std::function<frmDocument*()> activeDocument, QWidget* parent)
    : QWidget(parent, Qt::Tool), activeDocument_(std::move(activeDocument)) {
    setWindowTitle("HTML Tags");
    setAccessibleName("HTML Tags");
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0); // the list fills the whole inner area
    lstTags = new QListWidget(this);
    lstTags->setObjectName("lstTags");
    for (std::string_view entry : HtmlTagEntries())
        lstTags->addItem(QString::fromLatin1(entry.data(), qsizetype(entry.size())));
    layout->addWidget(lstTags);
    connect(lstTags, &QListWidget::itemDoubleClicked, this, [this] { InsertSelectedTag(); });
    // Stored in pixels; the defaults are those of a small tool window.
    move(StoredInt("HTMLX", 0), StoredInt("HTMLY", 0));
    resize(std::max(StoredInt("HTMLW", 248), 1), std::max(StoredInt("HTMLH", 180), 1));
}

frmHTMLTags::~frmHTMLTags() {
    SavePlace();
}

void frmHTMLTags::closeEvent(QCloseEvent* e) {
    SavePlace();
    QWidget::closeEvent(e);
}

void frmHTMLTags::SavePlace() {
    if (saved_) return;
    saved_ = true;
    const QString app = AppTitle();
    SaveSetting(app, "Settings", "HTMLX", QString::number(x()));
    SaveSetting(app, "Settings", "HTMLY", QString::number(y()));
    SaveSetting(app, "Settings", "HTMLW", QString::number(width()));
    SaveSetting(app, "Settings", "HTMLH", QString::number(height()));
}

void frmHTMLTags::InsertSelectedTag() {
    frmDocument* doc = activeDocument_ ? activeDocument_() : nullptr;
    if (!doc) return; // the window may outlive the last document
    QListWidgetItem* item = lstTags->currentItem();
    const std::string entry = item ? item->text().toStdString() : std::string();
    TransformCommands::InsertTag(*doc, entry);
}
