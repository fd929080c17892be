#include "transforms/frmSpacestoTabs.h"

#include "base/qt/AppGlobals.h"
#include "transforms/TabDialogLayout.h"

#include <QLineEdit>

frmSpacestoTabs::frmSpacestoTabs(QWidget* parent) : QDialog(parent) {
    TabDialogParts p = BuildTabDialog(*this, Tag, "Spaces to Tabs", "Replace runs of",
                                      "spaces with tab characters.");
    txtSpaces = p.box;
    cmdOK = p.ok;
    cmdCancel = p.cancel;
    txtSpaces->setText(QString::number(g_EditorSettings().TabWidth));
}
