#include "app/KeyboardLocks.h"

#include <QGuiApplication>

#ifdef KESTRUM_HAVE_XKB
#include <X11/XKBlib.h>
#endif

std::optional<KeyboardLocks> ReadKeyboardLocks() {
#ifdef KESTRUM_HAVE_XKB
    auto* x11 = qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    Display* display = x11 ? x11->display() : nullptr;
    if (!display) return std::nullopt;
    unsigned state = 0;
    if (XkbGetIndicatorState(display, XkbUseCoreKbd, &state) != Success) return std::nullopt;
    // The core keyboard's first two indicators are Caps Lock and Num Lock.
    return KeyboardLocks{(state & 1u) != 0, (state & 2u) != 0};
#else
    return std::nullopt;
#endif
}
