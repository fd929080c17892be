#pragma once
// The Search menu's commands on the active document of the host. The main window's menu
// handlers and kestrum-do call these, so both run the same code.

void SearchFind();        // frmFind, modal
void SearchFindEx();      // frmFindEx, modal, unloaded when closed
void SearchFindNext();    // repeats LastSearchText from behind the selection's start
void SearchReplace();     // frmReplace, modal
void SearchReplaceEx();   // frmReplaceEx, modal
void SearchFindPattern(); // frmFindPattern, modal
void SearchGotoLine();
void SearchGotoChar();
void SearchFindInFiles(); // the Find in Files dialog and its results pane
