#include "profiles/frmOptions.h"

#include "base/qt/AppGlobals.h"
#include "base/qt/DataPaths.h"
#include "components/HelpSystem.h"
#include "components/ColorButton.h"
#include "components/cDialogs.h"
#include "profiles/DelimiterRowsBox.h"
#include "profiles/KeywordPage.h"
#include "profiles/ProfileSaving.h"
#include "profiles/core/ProfileFile.h"

#include <QCheckBox>
#include <QDir>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QVBoxLayout>
#include <cstdio>

namespace {
template <typename W> W* Named(W* w, const QString& name) {
    w->setAccessibleName(name);
    return w;
}
} // namespace

frmOptions::frmOptions(QWidget* parent) : QDialog(parent) {
    setWindowTitle("Editor Options");
    setAccessibleName(windowTitle());
    tabs = Named(new QTabWidget(this), "tabs");

    // Page 0: usability, tabs and profiles.
    auto* general = new QWidget;
    auto* usability = Named(new QGroupBox("Editor Usability Options"), "Editor Usability Options");
    auto* ul = new QVBoxLayout(usability);
    auto check = [](const char* caption, QLayout* l) {
        auto* c = Named(new QCheckBox(caption), caption);
        l->addWidget(c);
        return c;
    };
    chkAutoBracer = check("Automatic Bracer/Quote Completion", ul);
    chkBackup = check("Save Backups when files are opened", ul);
    chkAutoCode = check("Color Code Whole Files Automatically", ul);
    chkWordWrap = check("Wrap text to window edge", ul);
    chkAutoComplete = check("Automatic Phrase Completion", ul);
    chkSysTray = check("Display Kestrum icon in systray", ul);
    auto* tabBox = Named(new QGroupBox("Editor Tab Behaviour"), "Editor Tab Behaviour");
    auto* tl = new QFormLayout(tabBox);
    optHardTabs = Named(new QRadioButton("Hard Tabs [actual tab characters]"),
                        "Hard Tabs [actual tab characters]");
    optSoftTabs = Named(new QRadioButton("Soft Tabs [inserts runs of spaces]"),
                        "Soft Tabs [inserts runs of spaces]");
    txtTabWidth = Named(new QLineEdit, "Tab Width (soft tabs only)");
    txtTabWidth->installEventFilter(this);
    tl->addRow(optHardTabs);
    tl->addRow(optSoftTabs);
    tl->addRow("Tab Width (soft tabs only)", txtTabWidth);
    auto* profiles = Named(new QGroupBox("Language Profiles:"), "Language Profiles:");
    auto* pl = new QVBoxLayout(profiles);
    lstProfiles = Named(new QListWidget, "Language Profiles:");
    cmdApplyProfile = Named(new QPushButton("Apply this Profile"), "Apply this Profile");
    cmdExportProfile = Named(new QPushButton("Export Current Settings as Profile"),
                             "Export Current Settings as Profile");
    pl->addWidget(lstProfiles);
    pl->addWidget(cmdApplyProfile);
    pl->addWidget(cmdExportProfile);
    auto* gl = new QGridLayout(general);
    gl->addWidget(usability, 0, 0);
    gl->addWidget(tabBox, 1, 0);
    gl->addWidget(profiles, 0, 1, 2, 1);
    tabs->addTab(general, "Editor");

    // Page 1: font.
    auto* fontPage = Named(new QGroupBox("Editor Font Setup"), "Editor Font Setup");
    auto* fl = new QVBoxLayout(fontPage);
    cmdChooseFont = Named(new QPushButton("Select Font..."), "Select Font...");
    lblFontPreview = Named(new QLabel, "lblFontPreview");
    lblFontPreview->setAlignment(Qt::AlignCenter);
    lblFontPreview->setMinimumHeight(60);
    auto* fontNote = new QLabel("NOTE: It is recommended that you use a non-proportional font for "
                                "editing (eg.FixedSys, Courier)");
    fontNote->setWordWrap(true);
    fl->addWidget(cmdChooseFont);
    fl->addWidget(lblFontPreview);
    fl->addWidget(fontNote);
    tabs->addTab(fontPage, "Font");

    // Page 2: keywords.
    keywords = new KeywordPage(KeywordImportRule::Options);
    tabs->addTab(keywords, "Keywords");

    // Page 3: colours.
    auto* colours = new QWidget;
    auto* cl = new QVBoxLayout(colours);
    auto* coding = Named(new QGroupBox("Color Coding Options"), "Color Coding Options");
    auto* col = new QVBoxLayout(coding);
    chkCaseSensitive = check("Case Sensitive Color Coding", col);
    chkCodeOrder = check("Code Keywords first, then delimiters (leave unchecked to code "
                         "delimiters first.)",
                         col);
    cl->addWidget(coding);
    auto colourRow = [](QFormLayout* l, const char* caption) {
        auto* b = Named(new ColorButton, caption);
        l->addRow(caption, b);
        return b;
    };
    auto* kwBox = Named(new QGroupBox("Keyword List Colors"), "Keyword List Colors");
    auto* kwl = new QFormLayout(kwBox);
    lblKeywordColor[0] = colourRow(kwl, "Keyword List 1:");
    lblKeywordColor[1] = colourRow(kwl, "Keyword List 2:");
    lblKeywordColor[2] = colourRow(kwl, "Keyword List 3:");
    auto* dBox = Named(new QGroupBox("Delimiter Colors"), "Delimiter Colors");
    auto* dl = new QFormLayout(dBox);
    lblKeywordColor[3] = colourRow(dl, "Comments:");
    lblKeywordColor[4] = colourRow(dl, "Delimiter 1:");
    lblKeywordColor[5] = colourRow(dl, "Delimiter 2:");
    auto* eBox = Named(new QGroupBox("Editor Colors"), "Editor Colors");
    auto* el = new QFormLayout(eBox);
    lblTextColor = colourRow(el, "Editor Text:");
    lblBGColor = colourRow(el, "Editor Background:");
    cl->addWidget(kwBox);
    cl->addWidget(dBox);
    cl->addWidget(eBox);
    tabs->addTab(colours, "Colors");

    // Page 4: delimiters.
    delimiters = new DelimiterRowsBox;
    tabs->addTab(delimiters, "Delimiters");
    for (int i = 0; i < tabs->count(); ++i) tabs->widget(i)->setAccessibleName(tabs->tabText(i));

    cmdOK = Named(new QPushButton("OK"), "OK");
    cmdCancel = Named(new QPushButton("Cancel"), "Cancel");
    cmdHelp = Named(new QPushButton("Help"), "Help");
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (QPushButton* b : {cmdOK, cmdCancel, cmdHelp}) buttons->addWidget(b);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs);
    layout->addLayout(buttons);

    connect(cmdChooseFont, &QPushButton::clicked, this, &frmOptions::cmdChooseFont_Click);
    connect(cmdApplyProfile, &QPushButton::clicked, this, &frmOptions::cmdApplyProfile_Click);
    connect(cmdExportProfile, &QPushButton::clicked, this, &frmOptions::cmdExportProfile_Click);
    connect(cmdOK, &QPushButton::clicked, this, &frmOptions::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmOptions::cmdCancel_Click);
    connect(cmdHelp, &QPushButton::clicked, this, [] { ShowHelpTopic("util_editor_options"); });
    RefreshProfiles();
}

void frmOptions::showEvent(QShowEvent* e) {
    // Every showing starts from the global record.
    delimiters->SelectFirstEntries();
    UpdateDisplayElements();
    QDialog::showEvent(e);
}

bool frmOptions::eventFilter(QObject* o, QEvent* e) {
    if (o == txtTabWidth && e->type() == QEvent::KeyPress) {
        const QString t = static_cast<QKeyEvent*>(e)->text();
        if (t.size() == 1 && t[0].unicode() >= 32 && !t[0].isDigit()) return true;
    }
    return QDialog::eventFilter(o, e);
}

void frmOptions::keyReleaseEvent(QKeyEvent* e) {
    if (e->key() == Qt::Key_F1) ShowHelpTopic("util_editor_options");
    QDialog::keyReleaseEvent(e);
}

void frmOptions::RefreshProfiles() {
    lstProfiles->clear();
    lstProfiles->addItems(DataFiles("PROFILES"));
}

int32_t frmOptions::ColorValue(const ColorButton* b, size_t slot) const {
    return b->SelectedColor() == ColorFromLong(shown_[slot]) ? shown_[slot]
                                                             : LongFromColor(b->SelectedColor());
}

OptionsDialogValues frmOptions::Values() const {
    OptionsDialogValues v;
    v.lists = keywords->Entries();
    for (size_t i = 0; i < 6; ++i) v.keywordColors[i] = ColorValue(lblKeywordColor[i], i);
    v.bgColor = ColorValue(lblBGColor, 6);
    v.textColor = ColorValue(lblTextColor, 7);
    v.wordWrap = chkWordWrap->isChecked();
    v.autoComplete = chkAutoComplete->isChecked();
    v.autoCode = chkAutoCode->isChecked();
    v.codeOrder = chkCodeOrder->isChecked();
    v.caseSensitive = chkCaseSensitive->isChecked();
    v.autoBracers = chkAutoBracer->isChecked();
    v.backup = chkBackup->isChecked();
    v.sysTray = chkSysTray->isChecked();
    v.hardTabs = optHardTabs->isChecked();
    const QFont f = lblFontPreview->font();
    v.fontName = ToBytes(f.family());
    v.fontSize = float(f.pointSizeF());
    v.bold = f.bold();
    v.italic = f.italic();
    v.tabWidthText = ToBytes(txtTabWidth->text());
    v.delimiters = delimiters->Rows();
    return v;
}

void frmOptions::SetValues(const OptionsDialogValues& v) {
    keywords->SetEntries(v.lists);
    for (size_t i = 0; i < 6; ++i) shown_[i] = v.keywordColors[i];
    shown_[6] = v.bgColor;
    shown_[7] = v.textColor;
    for (size_t i = 0; i < 6; ++i)
        lblKeywordColor[i]->SetSelectedColor(ColorFromLong(v.keywordColors[i]));
    lblBGColor->SetSelectedColor(ColorFromLong(v.bgColor));
    lblTextColor->SetSelectedColor(ColorFromLong(v.textColor));
    chkWordWrap->setChecked(v.wordWrap);
    chkAutoComplete->setChecked(v.autoComplete);
    chkAutoCode->setChecked(v.autoCode);
    chkCodeOrder->setChecked(v.codeOrder);
    chkCaseSensitive->setChecked(v.caseSensitive);
    chkAutoBracer->setChecked(v.autoBracers);
    chkBackup->setChecked(v.backup);
    chkSysTray->setChecked(v.sysTray);
    optHardTabs->setChecked(v.hardTabs);
    optSoftTabs->setChecked(!v.hardTabs);
    QFont f(FromBytes(v.fontName));
    if (v.fontSize > 0) f.setPointSizeF(v.fontSize);
    f.setBold(v.bold);
    f.setItalic(v.italic);
    lblFontPreview->setFont(f);
    lblFontPreview->setText(FromBytes(v.fontName));
    txtTabWidth->setText(QString::fromStdString(v.tabWidthText).trimmed());
    delimiters->SetRows(v.delimiters);
}

void frmOptions::UpdateDisplayElements() {
    OptionsDialogValues v;
    const bool sysTray = GetSetting(AppTitle(), "Settings", "SysTray", "1").toInt() != 0;
    ::UpdateDisplayElements(g_EditorSettings(), sysTray, v);
    SetValues(v);
    RefreshProfiles();
}

void frmOptions::TranslateSettings() {
    const OptionsDialogValues v = Values();
    if (onSysTray) onSysTray(v.sysTray);
    ::TranslateSettings(v, g_EditorSettings());
    try {
        SaveEditorSettings(Store(), ToBytes(AppTitle()), g_EditorSettings(), v.sysTray);
    } catch (const SettingsStoreError& err) {
        std::fprintf(stderr, "Kestrum: %s\n", err.what()); // the store shows no message
    }
}

void frmOptions::cmdChooseFont_Click() {
    QFont f = lblFontPreview->font();
    if (auto chosen = cDialogs::Get().FontDialog(f, "Font")) {
        lblFontPreview->setFont(*chosen);
        lblFontPreview->setText(chosen->family());
    }
}

void frmOptions::cmdApplyProfile_Click() {
    QListWidgetItem* item = lstProfiles->currentItem();
    if (!item) return;
    EditorSettings p;
    ReadProfileFile(ToBytes(DataFileToRead("PROFILES/" + item->text())), p);
    EditorSettings& g = g_EditorSettings();
    g.Keywords = p.Keywords;
    g.KeywordCount = p.KeywordCount;
    g.Delimiters = p.Delimiters;
    g.CodeOrder = p.CodeOrder;
    g.CaseSensitive = p.CaseSensitive;
    UpdateDisplayElements();
}

void frmOptions::cmdExportProfile_Click() {
    TranslateSettings();
    if (SaveProfileAs(g_EditorSettings())) RefreshProfiles();
}

void frmOptions::cmdOK_Click() {
    TranslateSettings();
    hide();
    accept();
    if (onClosed) onClosed(true);
}

void frmOptions::cmdCancel_Click() {
    hide();
    reject();
    if (onClosed) onClosed(false);
}
