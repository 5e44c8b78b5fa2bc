#include "page/EmbeddedObjects.h"

#include "page/OwnerApplication.h"

#include <QFile>
#include <QUrl>
#include <QWebFrame>

namespace tv {

namespace {

QByteArray resource(const char* name) {
    QFile file(QStringLiteral(":/js/") + QLatin1String(name));
    file.open(QIODevice::ReadOnly);
    return file.readAll();
}

/** Each file is a function, which gets what the files share, and the application. */
QString composeScript() {
    QByteArray script = "(function(television) { delete window.television; var objects = {};\n";
    for (const char* name :
         {"embedded-objects.js", "console.js", "application-manager.js", "configuration.js", "capabilities.js",
          "drm-agent.js", "broadcast.js", "media-object.js", "object-factory.js", "dialogs.js"}) {
        script += '(' + resource(name) + ")(objects, television);\n";
    }
    return QString::fromUtf8(script + "})(window.television);");
}

} // namespace

void installEmbeddedObjects(QWebFrame& frame, OwnerApplication& application) {
    static const QString script = composeScript();
    frame.addToJavaScriptWindowObject(QStringLiteral("television"), &application);
    frame.evaluateJavaScript(script);
}

QUrl embeddedObjectsStyleSheet() {
    // The engine knows this form of a data address only.
    return QUrl(QStringLiteral("data:text/css;charset=utf-8;base64,") +
                QString::fromLatin1(resource("embedded-objects.css").toBase64()));
}

} // namespace tv
