#pragma once
// The pictures of the toolbar buttons, looked up by image key ("SAVE ALL"). They are SVG files
// compiled into the program as resources under ":/icons/"; Qt's SVG icon engine draws them
// sharp at every button size.
#include <QIcon>
#include <QString>
#include <QStringList>

// The icon of an image key, or a null icon for a key that has none.
QIcon ToolbarIcon(const QString& key);
// The program's own icon, shown by the main window and every document window.
QIcon ProgramIcon();
// Every image key, in the order of the image list.
QStringList ToolbarIconKeys();
// The resource path of a key's SVG file, e.g. ":/icons/save-all.svg" for "SAVE ALL".
QString ToolbarIconPath(const QString& key);
