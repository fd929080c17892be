// The tray icon and its popup menu. The icon is there only while "SysTray" is 1; the window
// does not hide when minimised, and nothing but these commands reacts to the icon.
#include "app/frmMain.h"

#include "base/qt/AppGlobals.h"
#include "components/cSysTray.h"

#include <QAction>
#include <QCursor>
#include <QMenu>

namespace {
// Out of the minimised state into the normal one, shown and with the focus in the document.
void RestoreWindow(frmMain& m) {
    if (m.isMinimized()) m.showNormal();
    m.show();
    m.raise();
    m.activateWindow();
    m.FocusActiveDocument();
}
} // namespace

void frmMain::LoadSysTray() {
    if (!sysTray) {
        sysTray = new cSysTray(this);
        sysTray->SetTrayTip(QStringLiteral("Kestrum Remote - Right-click for menu."));
        connect(sysTray, &cSysTray::MouseDblClick, this, &frmMain::cSysTray_MouseDblClick);
        connect(sysTray, &cSysTray::MouseUp, this, &frmMain::cSysTray_MouseUp);
        mnuHidden = new QMenu(this);
        mnuHidden->setObjectName("mnuHidden");
        auto item = [this](const char* name, const QString& caption, void (frmMain::*handler)()) {
            QAction* a = mnuHidden->addAction(caption);
            a->setObjectName(name);
            connect(a, &QAction::triggered, this, handler);
            return a;
        };
        mnuHidden->setDefaultAction(
            item("mnuHiddenShowKestrum", "Show Kestrum", &frmMain::mnuHiddenShowKestrum_Click));
        item("mnuHiddenCloseKestrum", "Close Kestrum", &frmMain::mnuHiddenCloseKestrum_Click);
        item("mnuHiddenOpenFile", "Open File...", &frmMain::mnuHiddenOpenFile_Click);
        item("mnuHiddenHexEditFile", "Hex Edit File...", &frmMain::mnuHiddenHexEditFile_Click);
    }
    bool ok = false;
    double value = GetSetting(AppTitle(), "Settings", "SysTray", "1").toDouble(&ok);
    if (ok && value == 1) sysTray->SetInTray(true);
}

void frmMain::cSysTray_MouseDblClick(int) {
    mnuHiddenShowKestrum_Click();
}

void frmMain::cSysTray_MouseUp(int button) {
    if (button == cSysTray::vbRightButton) mnuHidden->popup(QCursor::pos());
}

void frmMain::mnuHiddenShowKestrum_Click() {
    RestoreWindow(*this);
}

void frmMain::mnuHiddenCloseKestrum_Click() {
    mnuFileExit_Click();
}

void frmMain::mnuHiddenOpenFile_Click() {
    RestoreWindow(*this);
    mnuFileOpen_Click();
}

void frmMain::mnuHiddenHexEditFile_Click() {
    RestoreWindow(*this);
    mnuFileOpenHex_Click();
}
