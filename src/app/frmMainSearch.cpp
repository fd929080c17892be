// The Search menu: each handler runs the search subsystem's command on the active document.
#include "app/frmMain.h"
#include "editor/frmDocument.h"
#include "search/SearchCommands.h"

void frmMain::mnuSearchFind_Click() { SearchFind(); }
void frmMain::mnuSearchFindNext_Click() { SearchFindNext(); }
void frmMain::mnuSearchReplace_Click() { SearchReplace(); }
void frmMain::mnuSearchFindEx_Click() { SearchFindEx(); }
void frmMain::mnuSearchFindInFiles_Click() { SearchFindInFiles(); }
void frmMain::mnuSearchReplaceEx_Click() { SearchReplaceEx(); }
void frmMain::mnuSearchFindPattern_Click() { SearchFindPattern(); }
void frmMain::mnuSearchGotoLine_Click() { SearchGotoLine(); }
void frmMain::mnuSearchGotoChar_Click() { SearchGotoChar(); }
