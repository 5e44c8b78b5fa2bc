#include "app/HeadlessMessages.h"

#include <QString>
#include <QtGlobal>
#include <glib.h>

namespace tv {

namespace {

QtMessageHandler defaultHandler = nullptr;

void qtMessage(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (!text.startsWith(QLatin1String("QStandardPaths: XDG_RUNTIME_DIR not set"))) {
        defaultHandler(type, context, text);
    }
}

void gdkMessage(const char*, GLogLevelFlags, const char*, void*) {}

} // namespace

void dropMissingDesktopMessages() {
    defaultHandler = qInstallMessageHandler(qtMessage);
    // Where GTK 2 is installed, the engine asks it for a display; nothing else here uses GDK.
    g_log_set_handler("Gdk", G_LOG_LEVEL_CRITICAL, gdkMessage, nullptr);
}

} // namespace tv
