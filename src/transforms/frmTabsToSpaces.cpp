#include "transforms/frmTabsToSpaces.h"

#include "transforms/TabDialogLayout.h"

#include <QLineEdit>
#include <QRegularExpressionValidator>

frmTabsToSpaces::frmTabsToSpaces(QWidget* parent) : QDialog(parent) {
    TabDialogParts p =
        BuildTabDialog(*this, Tag, "Convert Tabs to Spaces", "Replace all Tabs with", "spaces.");
    txtSpaces = p.box;
    cmdOK = p.ok;
    cmdCancel = p.cancel;
    // The box takes digits and backspace only; "4" whatever TabWidth is.
    txtSpaces->setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9]*"), this));
}
