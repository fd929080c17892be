// The commands that open the editor options and the profile editor.
#include "app/frmMain.h"

#include "base/qt/AppGlobals.h"
#include "base/qt/DataPaths.h"
#include "components/cDialogs.h"
#include "components/cSysTray.h"
#include "editor/DocumentArray.h"
#include "editor/frmDocument.h"
#include "profiles/core/ProfileFile.h"
#include "profiles/frmConfigAssocProfile.h"
#include "profiles/frmCreateprofile.h"
#include "profiles/frmOptions.h"

#include <QFileInfo>
#include <QTabWidget>

namespace {
void ShowOptions(frmMain& main, bool coloursOnly) {
    frmOptions dlg(&main);
    dlg.onSysTray = [&main](bool inTray) {
        if (main.sysTray) main.sysTray->SetInTray(inTray);
    };
    dlg.onClosed = [&main](bool accepted) {
        if (accepted) {
            if (frmDocument* active = main.ActiveForm()) active->ChangedHighLight = true;
            // A window with a loaded profile keeps it and takes only the font and colours.
            for (frmDocument* d : Documents().OpenDocuments()) {
                d->SetSyntax();
                d->RefreshDisplay();
            }
        }
        main.RefreshControls();
        main.update();
    };
    if (coloursOnly) {
        for (int page : {0, 1, 2, 4}) dlg.tabs->setTabEnabled(page, false);
        dlg.tabs->setCurrentIndex(3);
    }
    ShowModal(dlg);
}
} // namespace

void frmMain::mnuPrefsEditorSetup_Click() {
    ShowOptions(*this, false);
}

void frmMain::mnuViewSetColors_Click() {
    ShowOptions(*this, true);
}

void frmMain::mnuAdvancedNewProfile_Click() {
    frmCreateprofile dlg(this);
    dlg.onSaved = [this] { RefreshControls(); };
    ShowModal(dlg);
}

void frmMain::mnuAdvancedEditProfile_Click() {
    FileDialogOptions o;
    o.title = "Open Language Profile for Editing";
    o.filter = "All Profiles|*.*";
    o.initDir = UserDataDir() + "PROFILES";
    o.fileMustExist = true;
    auto path = cDialogs::Get().FileDialog(o);
    if (!path || path->isEmpty()) return;
    EditorSettings record;
    ReadProfileFile(ToBytes(*path), record);
    frmCreateprofile dlg(this);
    dlg.onSaved = [this] { RefreshControls(); };
    dlg.LoadRecord(record, QFileInfo(*path).fileName());
    ShowModal(dlg);
}
