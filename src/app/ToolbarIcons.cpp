#include "app/ToolbarIcons.h"

// The resource file is compiled into a static library; naming its initialiser here makes the
// linker keep it, and a static library's resources are not registered without the call.
static void InitToolbarIconResources() {
    Q_INIT_RESOURCE(icons);
    Q_INIT_RESOURCE(program);
}

namespace {
const QStringList& Keys() {
    // clang-format off
    static const QStringList keys = {
        "CAMERA", "RAISE CASE", "PROPER CASE", "LOWER CASE", "PALETTE", "COMMENT", "COPY", "CUT",
        "DELETE", "DOS", "EXPORT", "COMPARE", "FIND", "FIND NEXT", "FIND PATTERN", "FOLDER",
        "GOTO LINE", "HELP", "AUTHOR", "INDENT", "MARGINS", "NEW", "NEW PROFILE", "OPEN", "PASTE",
        "PASTE AS NEW", "PLAY", "PRINT", "EDIT PROFILE", "REPLACE", "SAVE", "SAVE ALL",
        "PREFERENCES", "TIP", "TOOLS", "UNDO", "UNINDENT", "CONFIG COMPILERS", "HTML"};
    // clang-format on
    return keys;
}
} // namespace

QStringList ToolbarIconKeys() {
    return Keys();
}

QString ToolbarIconPath(const QString& key) {
    if (!Keys().contains(key)) return {};
    return ":/icons/" + key.toLower().replace(' ', '-') + ".svg";
}

QIcon ProgramIcon() {
    [[maybe_unused]] static const bool registered = (InitToolbarIconResources(), true);
    return QIcon(QStringLiteral(":/program/kestrum.svg"));
}

QIcon ToolbarIcon(const QString& key) {
    [[maybe_unused]] static const bool registered = (InitToolbarIconResources(), true);
    const QString path = ToolbarIconPath(key);
    if (path.isEmpty()) return {};
    return QIcon(path);
}
