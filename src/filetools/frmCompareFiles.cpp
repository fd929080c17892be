#include "filetools/frmCompareFiles.h"

#include "base/qt/AppGlobals.h"
#include "components/HelpSystem.h"
#include "base/PathHelpers.h"
#include "components/cDialogs.h"
#include "filetools/frmComparison.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

namespace {
QCheckBox* CheckBox(QWidget* parent, const char* name, const char* caption) {
    auto* box = new QCheckBox(caption, parent);
    box->setObjectName(name);
    box->setAccessibleName(QString(caption).remove('&'));
    return box;
}

QPushButton* Button(QWidget* parent, const char* name, const char* caption) {
    auto* b = new QPushButton(caption, parent);
    b->setObjectName(name);
    b->setAccessibleName(QString(caption).remove('&'));
    return b;
}

// txtFirstFile_GotFocus and txtSecondFile_GotFocus: the whole text is selected.
class SelectAllOnFocus : public QObject {
  public:
    using QObject::QObject;
    bool eventFilter(QObject* o, QEvent* e) override {
        if (e->type() == QEvent::FocusIn)
            if (auto* edit = qobject_cast<QLineEdit*>(o))
                QTimer::singleShot(0, edit, [edit] { edit->selectAll(); });
        return false;
    }
};
} // namespace

frmCompareFiles::frmCompareFiles(QWidget* parent) : QDialog(parent) {
    setObjectName("frmCompareFiles");
    setWindowTitle("Compare Files");
    setAccessibleName(windowTitle());
    auto* grid = new QGridLayout(this);
    auto* focus = new SelectAllOnFocus(this);
    auto addFile = [&](int row, const char* name, const char* caption, QLineEdit*& box,
                       QPushButton*& browse, const char* browseName) {
        auto* label = new QLabel(caption, this);
        box = new QLineEdit(this);
        box->setObjectName(name);
        box->setAccessibleName(caption);
        box->installEventFilter(focus);
        label->setBuddy(box);
        browse = Button(this, browseName, "...");
        browse->setAccessibleName(QString("Browse: ") + caption);
        grid->addWidget(label, row * 2, 0, 1, 2);
        grid->addWidget(box, row * 2 + 1, 0);
        grid->addWidget(browse, row * 2 + 1, 1);
    };
    addFile(0, "txtFirstFile", "First File to Compare", txtFirstFile, BrowseButton1, "BrowseButton1");
    addFile(1, "txtSecondFile", "Second File to Compare", txtSecondFile, BrowseButton2,
            "BrowseButton2");
    chkCaseSensitive = CheckBox(this, "chkCaseSensitive", "Case Sensitive");
    chkOpenFiles = CheckBox(this, "chkOpenFiles", "Open Files Being Compared");
    chkShowDifferent = CheckBox(this, "chkShowDifferent", "Show Only Lines that Differ");
    chkIgnoreBlanks = CheckBox(this, "chkIgnoreBlanks", "Ignore Blank Lines");
    grid->addWidget(chkCaseSensitive, 4, 0);
    grid->addWidget(chkOpenFiles, 5, 0);
    grid->addWidget(chkShowDifferent, 6, 0);
    grid->addWidget(chkIgnoreBlanks, 7, 0);
    auto* buttons = new QDialogButtonBox(this);
    cmdOK = Button(this, "cmdOK", "OK");
    cmdCancel = Button(this, "cmdCancel", "Cancel");
    cmdHelp = Button(this, "cmdHelp", "Help");
    cmdOK->setDefault(true);
    buttons->addButton(cmdOK, QDialogButtonBox::AcceptRole);
    buttons->addButton(cmdCancel, QDialogButtonBox::RejectRole);
    buttons->addButton(cmdHelp, QDialogButtonBox::HelpRole);
    grid->addWidget(buttons, 8, 0, 1, 2);

    connect(cmdOK, &QPushButton::clicked, this, [this] { cmdOK_Click(); });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(cmdHelp, &QPushButton::clicked, this, [] { ShowHelpTopic("util_file_comparison"); });
    connect(BrowseButton1, &QPushButton::clicked, this,
            [this] { BrowseButton_Click(txtFirstFile, "First File to Compare"); });
    connect(BrowseButton2, &QPushButton::clicked, this,
            [this] { BrowseButton_Click(txtSecondFile, "Second File to Compare"); });
    Form_Load();
}

void frmCompareFiles::Form_Load() {
    txtFirstFile->setText(GetSetting(AppTitle(), "Comparison", "File1", ""));
    txtSecondFile->setText(GetSetting(AppTitle(), "Comparison", "File2", ""));
}

void frmCompareFiles::BrowseButton_Click(QLineEdit* box, const QString& title) {
    FileDialogOptions o;
    o.title = title;
    o.filter = "All Files (*.*)|*.*";
    o.fileMustExist = true;
    if (auto path = cDialogs::Get().FileDialog(o)) box->setText(*path);
}

frmComparison* frmCompareFiles::cmdOK_Click() {
    const QString first = txtFirstFile->text(), second = txtSecondFile->text();
    SaveSetting(AppTitle(), "Comparison", "File1", first);
    SaveSetting(AppTitle(), "Comparison", "File2", second);
    hide();
    auto* results = new frmComparison(resultsOwner);
    if (chkOpenFiles->isChecked() && openFilesForViewing) openFilesForViewing(first, second);

    CompareOptions options;
    options.caseSensitive = chkCaseSensitive->isChecked();
    options.showOnlyDifferent = chkShowDifferent->isChecked();
    options.ignoreBlanks = chkIgnoreBlanks->isChecked();
    results->SetResult(std::make_shared<const ComparisonResult>(
        CompareFiles(ToBytes(first), ToBytes(second), options)));
    results->setWindowTitle("Comparison Results - [" + FromBytes(FileNameOf(ToBytes(first))) + ":" +
                            FromBytes(FileNameOf(ToBytes(second))) + "]");
    results->setAccessibleName(results->windowTitle());
    accept();
    results->show();
    return results;
}
